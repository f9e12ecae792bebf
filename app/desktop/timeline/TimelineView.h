#pragma once

#include "app/desktop/drawn/DrawnView.h"
#include "app/desktop/models/MediaArrivals.h"
#include "app/desktop/timeline/TimelineDrag.h"
#include "app/editor/Editor.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QVariantList>
#include <memory>

namespace murbo {

class SpokenTimes;

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
    Q_PROPERTY(double bladeX READ bladeX NOTIFY hintChanged)
    Q_PROPERTY(QString hint READ hint NOTIFY hintChanged)
    Q_PROPERTY(QPointF hintAt READ hintAt NOTIFY hintChanged)
    Q_PROPERTY(QObject* appearance READ appearance WRITE setAppearance NOTIFY editorChanged)
    Q_PROPERTY(murbo::MediaArrivals* arrivals MEMBER arrivals)
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
    double bladeX() const { return blade; }    ///< -1 where the blade is over nothing
    QString hint() const { return hintWords; } ///< what the pointer is over: a moment, a quiet stretch
    QPointF hintAt() const { return hintPlace; }
    QObject* appearance() const { return look; }
    void setAppearance(QObject* appearance);
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

    /// Something from elsewhere is over it, "clips" or "files"; clips are shown where they would land.
    Q_INVOKABLE void dropMoves(const QString& kind, double x);
    Q_INVOKABLE void dropLeaves();
    Q_INVOKABLE bool dropClips(double x);
    /// The files that are nothing for the timeline are given back.
    Q_INVOKABLE QStringList dropFiles(const QStringList& files, double x, double y);
    /// Where a block lies in this item, in points; some of it may be outside.
    QRectF placeOf(const TimelineBlock& block) const;
    void pickBlock(const TimelineBlock& block, bool more = false);
    /// Picks the block that comes that way: "previous", "next", "first", "last", "above", "below"; `more`
    /// leaves the others picked.
    Q_INVOKABLE void walk(const QString& way, bool more);
    /// The playhead goes to where what is picked begins.
    Q_INVOKABLE void goToPick();
    /// The menu of what is picked, where it lies.
    Q_INVOKABLE void askMenu();

signals:
    void editorChanged();
    void coloursChanged();
    void spanChanged();
    void tracksChanged();
    void playheadChanged();
    void dragChanged();
    void hintChanged();
    void menuAsked(double x, double y, const QString& kind);
    /// A caption's words are to be edited in its place.
    void editAsked(const QRectF& place, const QString& line, int piece);
    void blockWalked(); ///< keys have picked another block

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
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void rebuild();
    void rescale();
    double inReach(double from) const; ///< what `from` is kept within, in seconds
    void opened();
    void scrollBy(double seconds);
    TimelineDrag::Pointer point(const QPointF& position) const;
    void showCursor(const QPointF& position);
    void showHint(const QPointF& position);
    void dragTo(const QPointF& position, Qt::KeyboardModifiers held);
    void letAltGo(const QKeyEvent& event, bool held);
    void runAlong();
    void part();
    std::optional<PartedRow::Landing> landing() const;
    TimelineScene::Parted partedNow() const;
    double momentAt(double x) const { return std::max(span.time(x), 0.0); }
    std::optional<TimelineRow> rowAt(double y) const { return layout.rowAt(y + above); }
    void bringUp(const TimelineBlock& block);

    QPointer<Editor> session;
    QPointer<MediaArrivals> arrivals; ///< bring in files that are dropped
    QVariantMap theme;
    TimelineColours paints;
    TimelineLayout layout;
    TimelineSpan span;
    double above = 0;
    bool fitted = false; ///< to the open video
    bool fits = false;   ///< all of it is in view, and nobody has zoomed since
    std::unique_ptr<TimelineDrag> drag;
    QPointer<QObject> look;
    std::unique_ptr<SpokenTimes> spoken;
    PartedRow parted;
    QElapsedTimer clock;
    QTimer parting;       ///< while cuts slide aside
    QTimer running;       ///< while the timeline runs along under a drag
    QPointF dragPosition; ///< where the hand was last
    Qt::KeyboardModifiers dragKeys;
    std::optional<double> foreignDrop;                ///< video seconds
    std::optional<PartedRow::Landing> foreignLanding; ///< of clips out of the browser
    double blade = -1;
    QString hintWords;
    QPointF hintPlace;
};

}
