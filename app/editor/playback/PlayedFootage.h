#pragma once

#include "app/editor/playback/FootageReel.h"
#include "app/editor/playback/ReverseReel.h"
#include "core/render/VideoComposition.h"
#include "platform/image/Image.h"

#include <cstddef>
#include <functional>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>

namespace murbo {

/// What the footage of a composition shows, for a player: forward, backward and anywhere. The file of the
/// cut that comes next is opened and wound to its place while this one plays. A few files at most are open
/// at a time, and what is kept of them is bounded.
///
/// One thread at a time may use it.
class PlayedFootage {
public:
    struct PlayedPicture {
        std::optional<Image> image; ///< none: black
        std::optional<UUID> source; ///< whose it is; none where the file has no readable picture
        bool exact = true;
    };

    ~PlayedFootage();

    /// Plays another composition from here on. Files that both use stay open, but for those that were
    /// replaced on the disk.
    void turnTo(std::shared_ptr<const VideoComposition> composition);

    /// The picture at a moment. `rate` says which way it goes on, for what is made ready meanwhile; 0 where
    /// it stands. Nothing once `stop` came.
    PlayedPicture at(const VideoComposition::Moment& moment, double rate, const std::stop_token& stop);
    /// The same played backward: quick, and softer. Where it isn't there once `late` says that it is wanted
    /// no more, a picture near by takes its place.
    PlayedPicture backward(const VideoComposition::Moment& moment, double rate, const std::stop_token& stop,
                           const std::function<bool()>& late);
    /// A picture near the moment that is quickly had.
    PlayedPicture nearest(const VideoComposition::Moment& moment);
    /// Makes ready what a step from a moment may ask for, while nothing else is to be done.
    void readAround(const VideoComposition::Moment& moment);

private:
    using Segment = VideoComposition::Segment;

    PlayedPicture nearest(const VideoComposition::Moment& moment, const Segment& segment);
    FootageReel& reelFor(std::size_t segment, double at);
    void openAnew(const std::filesystem::path& file);
    void prepare(std::size_t segment, double at);
    void finishPreparing();
    std::optional<std::size_t> neighbour(std::size_t segment, int way) const;
    bool goesOn(const Segment& earlier, const Segment& later) const;
    ReverseReel& reverseReel(std::size_t segment, double from, double step);

    std::shared_ptr<const VideoComposition> composition;
    std::optional<FootageReel> current;
    std::optional<FootageReel> other; ///< the one before, or the one that was made ready
    std::future<FootageReel> pending; ///< the file of another segment, on its way to its place
    std::optional<std::size_t> prepared;
    std::stop_source preparing;
    std::map<std::size_t, std::unique_ptr<ReverseReel>> reversed; ///< by segment: this one and the next back
};

}
