#pragma once

#include "app/editor/Background.h"
#include "app/editor/TrimEdge.h"
#include "app/editor/playback/Playback.h"

#include <QObject>
#include <optional>

namespace murbo {

struct Project;

/// The picture at an end of a cut while that is dragged: on a player of its own, so that the source player
/// stays where it is. Main thread only.
class EdgePicture : public QObject {
    Q_OBJECT
    Q_PROPERTY(murbo::Playback* player READ player CONSTANT)
    Q_PROPERTY(bool shown READ shown NOTIFY changed)
    Q_PROPERTY(bool ready READ ready NOTIFY changed)
    Q_PROPERTY(QString source READ source NOTIFY changed)
    Q_PROPERTY(double at READ at NOTIFY changed)

public:
    using QObject::QObject;
    ~EdgePicture() override;

    Playback* player() { return &standing; }
    bool shown() const { return edge.has_value(); }
    bool ready() const; ///< else a still stands in for the picture
    QString source() const;
    double at() const { return edge ? edge->at : 0; } ///< seconds on the source

    /// Goes to an edge; without one it shows nothing.
    void show(const std::optional<TrimEdge>& edge, const Project& project);

signals:
    void changed();

private:
    void open(const UUID& source, const Project& project);

    Playback standing;
    Background opening;
    std::optional<TrimEdge> edge;
    std::optional<UUID> opened; ///< which source it is opening, or has open
};

}
