#pragma once

#include <QAccessibleObject>
#include <map>
#include <memory>
#include <vector>

namespace murbo {

class BlockAccess;
class TimelineView;

/// The timeline as a screen reader meets it: a list of named blocks, row by row and in each row by time.
class TimelineAccess : public QAccessibleObject {
public:
    /// Makes it known to Qt; once.
    static void install();

    explicit TimelineAccess(TimelineView& timeline);
    ~TimelineAccess() override;

    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::List; }
    QAccessible::State state() const override;
    QWindow* window() const override;

    TimelineView& view() const;
    /// What screen readers hear of once keys have walked to the block that is picked; null without one.
    std::unique_ptr<QAccessibleEvent> walkedTo() const;

private:
    void follow();

    mutable std::vector<QAccessible::Id> blocks; ///< by their place in the layout, made when asked for
};

}
