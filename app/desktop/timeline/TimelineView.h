#pragma once

#include "app/desktop/drawn/DrawnView.h"
#include "app/desktop/timeline/TimelineDrag.h"
#include "app/editor/Editor.h"

#include <QVariantList>
#include <memory>

namespace murbo {

class SaidCache;

/// The timeline of the open video: its rows with their blocks, the ruler above them. What moves with every
/// frame, as the playhead, lies above it as items of its own.
class TimelineView : public DrawnView {
    Q_OBJECT
    Q_PROPERTY(murbo::Editor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    Q_PROPERTY(QVariantMap colours READ colours WRITE setColours NOTIFY coloursChanged)
    Q_PROPERTY(double scroll READ scroll WRITE setScroll NOTIFY spanChanged)
    Q_PROPERTY(double contentWidth READ contentWidth NOTIFY spanChanged)
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY tracksChanged)
    Q_PROPERTY(double rowsAbove READ rowsAbove WRITE setRowsAbove NOTIFY spanChanged)
    Q_PROPERTY(double playheadX READ playheadX NOTIFY playheadChanged)
    Q_PROPERTY(double skimmerX READ skimmerX NOTIFY playheadChanged)
    Q_PROPERTY(double dropX READ dropX NOTIFY dragChanged)
    Q_PROPERTY(double snapX READ snapX NOTIFY dragChanged)
    Q_PROPERTY(QRectF band READ band NOTIFY dragChanged)
    Q_PROPERTY(QVariantList tracks READ tracks NOTIFY tracksChanged)
    Q_PROPERTY(int blockCount READ blockCount NOTIFY tracksChanged)

public:
    explicit TimelineView(QQuickItem* parent = nullptr);
    ~TimelineView() override;

    Editor* editor() const { return session; }
    void setEditor(Editor* editor);
    Q_INVOKABLE void setFootage(QObject* footage);
    QVariantMap colours() const { return theme; }
    void setColours(const QVariantMap& colours);

    double scroll() const { return span.from; } ///< seconds at the left edge
    void setScroll(double seconds);
    double rowsAbove() const { return above; } ///< points of the rows scrolled away
    void setRowsAbove(double points);
    double contentWidth() const;
    double contentHeight() const { return layout.height; }
    double playheadX() const;
    double skimmerX() const; ///< -1 where nobody skims
    double dropX() const;    ///< -1 where nothing is dropped
    double snapX() const;    ///< -1 where nothing has caught
    QRectF band() const;
    /// The rows as their headers show them: name, top, height, lane of sound.
    QVariantList tracks() const;
    int blockCount() const { return static_cast<int>(layout.blocks.size()); }
    const TimelineLayout& shown() const { return layout; }
    const TimelineSpan& shownSpan() const { return span; }

    /// Has the whole video in view.
    Q_INVOKABLE void fit();
    /// Follows what the settings say of its look.
    Q_INVOKABLE void refresh() { rebuild(); }
    /// Zooms by a factor, and keeps the time at `x` where it is.
    Q_INVOKABLE void zoomRound(double factor, double x);
    Q_INVOKABLE void zoomStep(bool in);
    /// Brings the playhead into view.
    Q_INVOKABLE void follow();
    Q_INVOKABLE bool cancelDrag();
    /// The time of the video that is drawn there, in seconds.
    Q_INVOKABLE double timeAt(double x) const;
    /// Has the picked caption's words edited where it lies.
    Q_INVOKABLE void editPicked();

signals:
    void editorChanged();
    void coloursChanged();
    void spanChanged();
    void tracksChanged();
    void playheadChanged();
    void dragChanged();
    void menuAsked(double x, double y, const QString& kind);
    /// A caption's words are to be edited in its place.
    void editAsked(const QRectF& place, const QString& line, int piece);

protected:
    DrawList drawList() override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void rebuild();
    void rescale();
    void opened();
    void scrollBy(double seconds);
    TimelineDrag::Pointer point(const QPointF& position) const;
    void showCursor(const QPointF& position);

    QPointer<Editor> session;
    QVariantMap theme;
    TimelineColours paints;
    TimelineLayout layout;
    TimelineSpan span;
    double above = 0;
    bool fitted = false; ///< to the open video
    std::unique_ptr<SaidCache> said;
    std::unique_ptr<TimelineDrag> drag;
};

}
