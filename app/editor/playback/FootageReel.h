#pragma once

#include "platform/media/FrameReader.h"

#include <deque>
#include <filesystem>
#include <future>
#include <optional>
#include <stop_token>

namespace murbo {

/// Pictures of one file around a place. Those that were read last are kept whole, so that a step back costs
/// nothing. In whatever order times are asked for, each gets the very picture that is on then. A file that
/// breaks off or goes away leaves its last picture standing.
///
/// One thread at a time may use a reel.
class FootageReel {
public:
    explicit FootageReel(std::filesystem::path file);
    FootageReel(FootageReel&&) noexcept = default;
    FootageReel& operator=(FootageReel&&) noexcept = default;
    ~FootageReel();

    const std::filesystem::path& file() const { return path; }
    /// Whether what was opened is still what lies at the path.
    bool isCurrent() const;
    /// Whether the file could be opened; opens it.
    bool open();

    /// The picture that is on at a time; nothing where there is none, and where `stop` came first.
    std::optional<Frame> at(double time, const std::stop_token& stop);
    /// The same where it is kept, without reading.
    std::optional<Frame> atHand(double time) const;
    bool holds(double time) const; ///< whether it is kept
    /// A picture near a time that is quickly had: a kept one within `tolerance` seconds, else the one at or
    /// before it from which decoding can begin.
    std::optional<FrameReader::TimedFrame> nearest(double time, double tolerance);

    /// Whether a time is kept, or reached by reading on for a moment.
    bool isNear(double time) const;
    /// Begins to read what lies before a time, where little of that is kept, on a thread of its own: a step
    /// back need not wait for all that lies between it and its keyframe.
    void readBefore(double time);
    /// Lets all pictures go but the last.
    void thin();

private:
    /// What was read up to the first of the kept.
    struct Before {
        std::optional<FrameReader> reader; ///< to be used again
        std::deque<FrameReader::TimedFrame> frames;
        double edge = 0;    ///< the time of the first kept
        bool whole = false; ///< the last is followed by that one
    };

    static Before readUpTo(std::optional<FrameReader> reader, const std::filesystem::path& path, double from,
                           double edge, const std::stop_token& stop);
    void awaitBefore(double time, const std::stop_token& stop);
    void takeBefore();
    std::optional<Frame> lastBefore(double time) const;
    void readOn(double time, const std::stop_token& stop);
    void jump(double time, const std::stop_token& stop);
    void keep(FrameReader::TimedFrame frame);
    void forget();
    std::size_t capacity() const;
    double reach(std::size_t pictures) const;

    std::filesystem::path path;
    std::filesystem::file_time_type changed;
    std::uintmax_t size = 0;
    std::optional<FrameReader> reader;
    bool broken = false;
    std::deque<FrameReader::TimedFrame> kept; ///< each the next of the one before it
    bool startsFile = false;                  ///< before the first kept there is none
    bool endsFile = false;                    ///< after the last kept there is none
    bool readerIsThere = false;               ///< the reader goes on after the last kept
    double asked = 0;                         ///< seconds, the last time

    std::optional<FrameReader> behind; ///< reads what lies before; on loan to `before` while that is at work
    std::future<Before> before;
    double beforeFrom = 0;
    std::stop_source stopBefore;
};

}
