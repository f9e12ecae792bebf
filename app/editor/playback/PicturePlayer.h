#pragma once

#include "app/editor/playback/FrameSink.h"
#include "app/editor/playback/PlayedFootage.h"
#include "app/editor/playback/PlayerClock.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace murbo {

/// The pictures of a player: drawn by the export's own renderer for the size that is shown, a little ahead
/// on one thread, and shown on another when their time on the clock has come. A picture that comes too late
/// is left out and counted; none waits in line.
///
/// Standing, it shows the very picture of that moment, the same as the still. All may be called from any one
/// thread, and none waits for a picture.
class PicturePlayer {
public:
    struct Counts {
        std::int64_t shown = 0;
        std::int64_t dropped = 0; ///< frames of a play whose time passed before they were drawn
    };

    explicit PicturePlayer(PlayerClock& clock);
    ~PicturePlayer();

    /// Who takes the pictures, and their size in pixels; none draws nothing. Once this returns the sink
    /// before is no longer called.
    void setSink(std::shared_ptr<FrameSink> sink, int width, int height);

    /// Nothing in it shows nothing.
    void load(std::shared_ptr<const VideoComposition> composition);
    /// Shows what is on where the clock stands. `near` lets a picture near by come first.
    void stand(bool near);
    /// Shows what comes on as the clock runs, which runs already. `anew`: also what is on at its start, which
    /// is not on the screen.
    void run(bool anew);
    /// Draws anew what is shown and what comes: the plan is another.
    void redraw();

    Counts counts() const;

private:
    /// What is to be shown; each order takes the place of the one before.
    struct PictureOrder {
        std::uint64_t number = 0;
        std::shared_ptr<const VideoComposition> composition;
        double rate = 0;
        bool near = false;
        int width = 0;
        int height = 0;
        std::stop_token superseded;
    };
    struct Drawn {
        std::uint64_t order = 0;
        PlayerFrame frame;
        bool atOnce = false;
    };

    void give(const std::function<void(PictureOrder&)>& change);
    void draw(const std::stop_token& ending);
    void standStill(const PictureOrder& order);
    void drawOn(const PictureOrder& order);
    std::int64_t nextFrame(const PictureOrder& order, std::int64_t last) const;
    bool deliver(const PictureOrder& order, const VideoComposition::Moment& moment,
                 const PlayedFootage::PlayedPicture& picture, std::int64_t number);
    void present(const std::stop_token& ending);
    void showDue(std::unique_lock<std::mutex>& hold);
    double untilDue(const Drawn& drawn) const;

    PlayerClock& clock;

    mutable std::mutex lock; ///< guards what follows; never held while drawing or showing
    std::condition_variable_any changed;
    PictureOrder order;
    std::stop_source superseding;
    std::deque<Drawn> ahead;
    std::optional<std::int64_t> lastShown; ///< frame
    Counts count;

    std::mutex showing; ///< held while the sink is called
    std::shared_ptr<FrameSink> sink;

    PlayedFootage footage; ///< the drawing thread's own
    std::shared_ptr<const VideoComposition> turnedTo;
    double cost = 0.01; ///< seconds that a picture takes to draw, about

    std::jthread drawing;
    std::jthread presenting;
};

}
