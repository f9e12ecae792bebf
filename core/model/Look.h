#pragma once

#include "core/model/CaptionStyle.h"
#include "core/model/Move.h"
#include "platform/base/Field.h"
#include "platform/base/Shared.h"
#include "platform/base/UUID.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace murbo {

/// The filled-in parameters of a playbook.
using Values = std::map<std::string, std::string>;

/// The lanes of a video's sound, in the order shown.
enum class Lane { video, overlays, sounds, music };
inline constexpr std::array<Lane, 4> allLanes{Lane::video, Lane::overlays, Lane::sounds, Lane::music};
constexpr auto rawTexts(Lane) {
    return std::array<std::string_view, 4>{"video", "overlays", "sounds", "music"};
}

/// A framing that holds from its moment until the next shot.
struct Shot {
    enum class Layout { split, content, face };

    UUID id = UUID::make();
    UUID source;
    double at = 0; ///< seconds on the source
    Layout layout = Layout::split;
    double zoom = 1;
    std::optional<double> focus;           ///< 0 to 1: where in the picture the crop sits
    std::optional<std::string> move;       ///< a camera move by name
    std::optional<std::string> ease;       ///< an ease by name
    std::optional<double> split;           ///< share of the height for the top panel
    std::optional<std::string> transition; ///< how the shot comes in
    std::optional<std::string> playbook;   ///< id of the layout playbook that lays it out
    std::optional<std::int64_t> version;
    std::optional<Values> values;

    bool operator==(const Shot&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &Shot::id),
                          field("source", &Shot::source),
                          field("at", &Shot::at),
                          field("layout", &Shot::layout),
                          field("zoom", &Shot::zoom),
                          field("focus", &Shot::focus),
                          field("move", &Shot::move),
                          field("ease", &Shot::ease),
                          field("split", &Shot::split),
                          field("transition", &Shot::transition),
                          field("playbook", &Shot::playbook),
                          field("version", &Shot::version),
                          field("values", &Shot::values)};
    }
};
static_assert(Record<Shot>);
constexpr auto rawTexts(Shot::Layout) {
    return std::array<std::string_view, 3>{"split", "content", "face"};
}

/// What was changed by hand on one transcript line. The text itself stays in the transcript.
struct CaptionLine {
    /// A part of a line broken by hand.
    struct Piece {
        std::string text;
        std::optional<double> until; ///< share of the line's time at which the piece ends
        std::optional<bool> big;
        std::optional<bool> hidden;
        std::optional<std::vector<std::int64_t>> stress; ///< word indexes
        std::optional<Move> move;

        bool operator==(const Piece&) const = default;
        static constexpr auto fields() {
            return std::tuple{field("text", &Piece::text),     field("until", &Piece::until),
                              field("big", &Piece::big),       field("hidden", &Piece::hidden),
                              field("stress", &Piece::stress), field("move", &Piece::move)};
        }
    };

    UUID line;
    std::optional<std::vector<Piece>> pieces;
    std::optional<bool> big;
    std::optional<bool> hidden;
    std::optional<std::vector<std::int64_t>> stress; ///< word indexes
    std::optional<Move> move;
    std::optional<double> start; ///< seconds on the source, retimed by hand
    std::optional<double> end;

    bool operator==(const CaptionLine&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("line", &CaptionLine::line),     field("pieces", &CaptionLine::pieces),
                          field("big", &CaptionLine::big),       field("hidden", &CaptionLine::hidden),
                          field("stress", &CaptionLine::stress), field("move", &CaptionLine::move),
                          field("start", &CaptionLine::start),   field("end", &CaptionLine::end)};
    }
};
static_assert(Record<CaptionLine::Piece> && Record<CaptionLine>);

/// The captions of one video: on or off, their style, and the lines changed by hand.
struct Captions {
    bool on = true;
    std::optional<CaptionStyle> style; ///< over the project's
    List<CaptionLine> lines;

    /// The first entry for that transcript line, or null.
    const CaptionLine* line(const UUID& id) const;

    bool operator==(const Captions&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("on", &Captions::on), field("style", &Captions::style),
                          field("lines", &Captions::lines)};
    }
};
static_assert(Record<Captions>);

/// A playbook laid over the picture.
struct Overlay {
    UUID id = UUID::make();
    std::string playbook; ///< id
    std::int64_t version = 1;
    UUID source;
    double at = 0;               ///< seconds on the source
    double length = 0;           ///< seconds
    std::optional<bool> stretch; ///< the playbook's timing is stretched to `length`
    std::optional<Values> values;
    std::optional<bool> mute; ///< the video's own sound is off under it
    std::optional<Move> move;

    bool operator==(const Overlay&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &Overlay::id),           field("playbook", &Overlay::playbook),
                          field("version", &Overlay::version), field("source", &Overlay::source),
                          field("at", &Overlay::at),           field("length", &Overlay::length),
                          field("stretch", &Overlay::stretch), field("values", &Overlay::values),
                          field("mute", &Overlay::mute),       field("move", &Overlay::move)};
    }
};
static_assert(Record<Overlay>);

/// One sound effect or piece of music.
struct SoundCue {
    UUID id = UUID::make();
    std::string file; ///< absolute, or "media/…" in the package
    UUID source;
    double at = 0;                   ///< seconds on the source
    std::optional<double> volume;    ///< 0 to 1
    std::optional<std::string> from; ///< which library the file is from
    std::optional<double> length;    ///< seconds; plays only this long
    std::optional<double> skip;      ///< seconds cut off the file's start
    std::optional<bool> muted;

    bool operator==(const SoundCue&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &SoundCue::id),         field("file", &SoundCue::file),
                          field("source", &SoundCue::source), field("at", &SoundCue::at),
                          field("volume", &SoundCue::volume), field("from", &SoundCue::from),
                          field("length", &SoundCue::length), field("skip", &SoundCue::skip),
                          field("muted", &SoundCue::muted)};
    }
};
static_assert(Record<SoundCue>);

/// How loud the lanes are against one another. An absent level is 1.
struct Mix {
    std::optional<double> video;
    std::optional<double> overlays;
    std::optional<double> sounds;
    std::optional<double> music;
    std::optional<double> duck;             ///< what music falls to under speech, a factor
    std::optional<std::vector<Lane>> muted; ///< lanes turned off, in the order they were

    double level(Lane lane) const;
    void setLevel(Lane lane, double level);
    bool isMuted(Lane lane) const;
    /// Turns a lane off or on again; with no lane left off, `muted` has no value.
    void toggleMute(Lane lane);

    bool operator==(const Mix&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("video", &Mix::video),   field("overlays", &Mix::overlays),
                          field("sounds", &Mix::sounds), field("music", &Mix::music),
                          field("duck", &Mix::duck),     field("muted", &Mix::muted)};
    }
};
static_assert(Record<Mix>);

/// How a video is dressed. All times are on the footage, so that things stay on the words they belong to
/// when cuts are moved or trimmed. In JSON every key may be missing.
struct Look {
    List<Shot> shots;
    Captions captions;
    List<Overlay> overlays;
    List<SoundCue> sounds;
    List<SoundCue> music;
    std::optional<Mix> mix;

    bool operator==(const Look&) const = default;
    static constexpr bool everyKeyMayBeMissing = true;
    static constexpr auto fields() {
        return std::tuple{field("shots", &Look::shots),       field("captions", &Look::captions),
                          field("overlays", &Look::overlays), field("sounds", &Look::sounds),
                          field("music", &Look::music),       field("mix", &Look::mix)};
    }
};
static_assert(Record<Look>);

}
