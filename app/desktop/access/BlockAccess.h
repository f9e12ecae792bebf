#pragma once

#include <QAccessible>

namespace murbo {

class TimelineView;
struct TimelineBlock;

/// A block of the timeline as a screen reader meets it, by its place in the list. What stands at that place
/// may change with every edit; it is looked up when asked for.
class BlockAccess : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    BlockAccess(TimelineView& timeline, int place) : view(timeline), at(place) {}

    bool isValid() const override { return block() != nullptr; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    int place() const { return at; }

private:
    const TimelineBlock* block() const;
    bool picked() const;

    TimelineView& view;
    int at;
};

}
