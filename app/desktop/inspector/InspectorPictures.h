#pragma once

#include "app/desktop/inspector/LayoutCard.h"
#include "app/desktop/models/Rows.h"

#include <QThreadPool>
#include <QTimer>

namespace murbo {

class Editor;
struct Overlay;
struct Shot;
struct SoundCue;

/// The pictures of the Inspector tab, drawn on a worker: the layouts of a picked shot with the frame at the
/// playhead in each, a picked overlay over the video, the wave of a picked sound. Nothing is drawn while the
/// video plays or nobody looks.
class InspectorPictures : public QObject {
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* layouts READ layouts CONSTANT)
    Q_PROPERTY(QImage overlay READ overlay NOTIFY overlayChanged)
    Q_PROPERTY(QImage wave READ wave NOTIFY waveChanged)
    Q_PROPERTY(double shape READ shape NOTIFY shapeChanged)
    Q_PROPERTY(bool watched MEMBER watched NOTIFY watchedChanged)

public:
    explicit InspectorPictures(Editor& editor);
    /// Waits for what is being drawn.
    ~InspectorPictures() override;

    QAbstractItemModel* layouts() { return &cards; }
    QImage overlay() const { return overlayPicture; }
    QImage wave() const { return wavePicture; }
    double shape() const; ///< width by height of the video's frame
    bool isBusy() { return soon.isActive() || !pool.waitForDone(0); }
    const std::vector<LayoutCard>& layoutCards() const { return cards.rows(); }

signals:
    void overlayChanged();
    void waveChanged();
    void shapeChanged();
    void watchedChanged();

private:
    void wish();
    void drawNow();
    void drawLayouts(const Shot& shot);
    void drawOverlay(const Overlay& overlay);
    void drawWave(const SoundCue& cue);
    void take(std::int64_t order, std::vector<QImage> pictures, bool layouts);

    Editor& editor;
    Rows<LayoutCard> cards;
    QImage overlayPicture;
    QImage wavePicture;
    std::string waveFile; ///< whose the wave is
    bool watched = false; ///< somebody looks
    QTimer soon;
    std::int64_t order = 0; ///< of the last wish; what comes of earlier ones is dropped
    QThreadPool pool;
};

}
