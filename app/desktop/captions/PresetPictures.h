#pragma once

#include "core/model/Project.h"
#include "core/render/plan/Plan.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QThreadPool>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace murbo {

/// Caption styles as pictures: each drawn over a video's own frame, on its own words. They are made on a
/// worker; of several wishes only the last is carried out. Main thread only.
class PresetPictures : public QObject {
    Q_OBJECT

public:
    /// What is to be drawn. Without a cut the words stand on a plain ground.
    struct PresetWish {
        std::optional<Video> video;
        Project project;
        std::set<UUID> missing;
        std::string fonts;
        std::string specimen = "Your words"; ///< what is said where no caption of the video is
        std::optional<std::filesystem::path> package;
        double at = 0;                    ///< video seconds: the caption nearest to it is drawn
        std::vector<CaptionStyle> styles; ///< resolved, with their ids
        QSize size;                       ///< pixels of one picture
    };

    PresetPictures();
    /// Waits for what is being made.
    ~PresetPictures() override;

    void ask(PresetWish wish);
    /// The last picture of a style; null until there is one.
    QImage picture(const QString& style) const { return kept.value(style); }
    bool isBusy() const { return asked != done; }

    /// The part of a frame that a card shows: as wide as it is at most high, about the captions.
    static Rect shownPart(const Plan& plan, double time, const CaptionStyle& style, QSize card);
    /// Draws a wish; blocking.
    static QHash<QString, QImage> drawn(const PresetWish& wish);

signals:
    void changed();

private:
    QThreadPool pool;
    QHash<QString, QImage> kept;
    std::int64_t asked = 0;
    std::int64_t done = 0;
};

}
