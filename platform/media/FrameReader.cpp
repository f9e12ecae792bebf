#include "platform/media/FrameReader.h"

#include "platform/base/Problem.h"
#include "platform/media/Facts.h"
#include "platform/media/FrameView.h"
#include "platform/media/PictureDecoder.h"

namespace murbo {

namespace {

// Sums of doubles come out this close to what they stand for.
constexpr double rounding = 1e-6;
// Formats that count in milliseconds round a picture's own time too.
constexpr double maxHalfTick = 0.0005;
// Reading on is given up for a jump when that saves decoding more than this, about what a jump itself costs.
constexpr double worthAJump = 0.5;
// How far ahead reading on is tried in formats that don't say where their keyframes lie.
constexpr double blindReach = 3;
// The first step back where a jump landed too late; then twice as far, and so on.
constexpr double firstStepBack = 2;
// Decoders hold pictures back for less than this.
constexpr double maxHeldBack = 1;
// Reading gives up on a broken stretch after this many packets in a row that give no picture.
constexpr int maxStretches = 32;

// Far enough for any file, and safe to calculate with.
double bounded(double time) {
    return std::isnan(time) ? 0 : std::clamp(time, -1e9, 1e9);
}

PictureDecoder::Threads threads(FrameReader::Purpose purpose) {
    const bool stills = purpose == FrameReader::Purpose::stills;
    return stills ? PictureDecoder::Threads::one : PictureDecoder::Threads::several;
}

AVStream* pictureOf(const Demuxer& input) {
    if (AVStream* stream = input.picture()) return stream;
    throw Problem("“" + input.path().filename().string() + "” has no picture.");
}

}

// `current` is the picture given last, `upcoming` the one after it; together they say how long `current` is
// on.
struct FrameReader::PictureSearch {
    PictureSearch(const std::filesystem::path& path, Purpose purpose)
        : input(path),
          stream(pictureOf(input)),
          traits(FrameView::traits(input.context(), stream)),
          facts(Facts::of(input)),
          decoder(input, stream, threads(purpose)) {
        input.readOnly(stream);
        if (purpose == Purpose::sampling) decoder.onlySample();
        halfTick = std::min(av_q2d(stream->time_base) / 2, maxHalfTick) + rounding;
    }

    /// A picture's place on the grid. Its own time may be half a tick off, and so may the first picture's
    /// where that is not 0.
    std::optional<double> placeOf(std::int64_t ticks) const {
        const double reach = stream->start_time == 0 ? halfTick : 2 * halfTick;
        return facts.picture->grid.near(input.seconds(ticks, stream), reach);
    }
    double timeOf(std::int64_t ticks) const { return placeOf(ticks).value_or(input.seconds(ticks, stream)); }
    double onFrom(std::int64_t ticks) const {
        if (const auto place = placeOf(ticks)) return *place - rounding;
        return input.seconds(ticks, stream) - tolerance - halfTick;
    }
    bool comesOn(const std::optional<PictureDecoder::Decoded>& picture, double time) const {
        return picture && onFrom(picture->ticks) <= time;
    }

    bool shows(double time) const;
    bool canReadOn(double time) const;
    void readOn(double time, const std::stop_token& stop);
    bool passedBroken();
    double inside(double time) const;
    void advance();
    void forget();
    void land(double time, bool winding);
    void jump(double time, bool winding, const std::stop_token& stop);
    bool leftOutWhatIsAsked() const;
    bool isAtFileStart(double time) const;
    std::optional<TimedFrame> given();

    Demuxer input;
    AVStream* stream;
    PictureTraits traits;
    MediaFacts facts;
    PictureDecoder decoder;
    double halfTick = 0; ///< seconds that the file's clock rounds off at most

    std::optional<PictureDecoder::Decoded> current;
    std::optional<PictureDecoder::Decoded> upcoming;
    std::optional<Frame> frame; ///< of `current`, made when it is first given
    std::int64_t shown = INT64_MIN;
    bool currentIsFirst = false;
};

bool FrameReader::PictureSearch::shows(double time) const {
    if (shown == INT64_MIN) return false;
    if (onFrom(shown) > time) return currentIsFirst;
    if (upcoming || decoder.isAtEnd()) return !comesOn(upcoming, time);
    const double passed = input.seconds(decoder.readUpTo(), stream) - maxHeldBack;
    return time <= std::max(timeOf(shown) + tolerance, passed);
}

// Decoding on costs what lies between; a jump costs what lies between its keyframe and the time.
bool FrameReader::PictureSearch::canReadOn(double time) const {
    if (shown == INT64_MIN || onFrom(shown) > time) return false;
    if (decoder.hasFailed()) return false;
    const double position = input.seconds(decoder.readUpTo(), stream);
    if (time <= position + worthAJump) return true;
    const std::int64_t target = input.ticks(time, stream);
    const AVIndexEntry* key = avformat_index_get_entry_from_timestamp(stream, target, AVSEEK_FLAG_BACKWARD);
    if (!key || avformat_index_get_entries_count(stream) < 2) return time <= position + blindReach;
    return input.seconds(key->timestamp, stream) <= position + worthAJump;
}

void FrameReader::PictureSearch::advance() {
    if (upcoming) {
        shown = upcoming->ticks;
        current = std::exchange(upcoming, std::nullopt);
        frame.reset();
        currentIsFirst = false;
    }
    upcoming = decoder.next();
}

// Any picture that is asked for next takes a jump.
void FrameReader::PictureSearch::forget() {
    shown = INT64_MIN;
    current.reset();
    upcoming.reset();
    frame.reset();
}

void FrameReader::PictureSearch::readOn(double time, const std::stop_token& stop) {
    decoder.windTo(input.ticks(inside(time), stream));
    if (!upcoming) upcoming = decoder.next();
    while (comesOn(upcoming, time) && !stop.stop_requested()) advance();
    decoder.stopWinding();
}

// Whether there is a picture after the one shown, however long the broken stretch between them.
bool FrameReader::PictureSearch::passedBroken() {
    for (int tries = 0; !upcoming && tries < maxStretches; ++tries) {
        if (decoder.isAtEnd() || decoder.hasFailed()) break;
        upcoming = decoder.next();
    }
    return upcoming.has_value();
}

// After the end the last picture is asked for, and those around it must be whole too.
double FrameReader::PictureSearch::inside(double time) const {
    return facts.length > 0 ? std::min(time, facts.length) : time;
}

bool FrameReader::PictureSearch::isAtFileStart(double time) const {
    const double first = stream->start_time == AV_NOPTS_VALUE ? 0 : input.seconds(stream->start_time, stream);
    return !(time > first);
}

// Where a jump lands is the format's guess: it counts only if what it finds is on by then.
void FrameReader::PictureSearch::land(double time, bool winding) {
    const double goal = inside(time);
    shown = INT64_MIN;
    current.reset();
    frame.reset();
    for (double back = 0;; back = std::max(back * 2, firstStepBack)) {
        const bool fromStart = isAtFileStart(goal - back) || back > 1e6;
        const bool there = fromStart ? decoder.rewind() : decoder.seek(goal - back);
        if (winding) decoder.windTo(input.ticks(goal, stream));
        upcoming.reset();
        if (there) upcoming = decoder.next();
        if (!fromStart && !comesOn(upcoming, time) && !decoder.hasFailed()) continue;
        advance();
        currentIsFirst = fromStart;
        break;
    }
}

void FrameReader::PictureSearch::jump(double time, bool winding, const std::stop_token& stop) {
    land(time, winding);
    while (comesOn(upcoming, time) && !stop.stop_requested()) advance();
    decoder.stopWinding();
}

// Winding passes over pictures that no other needs; where times are uneven, that may have been the one asked
// for.
bool FrameReader::PictureSearch::leftOutWhatIsAsked() const {
    const bool fields = stream->codecpar->field_order > AV_FIELD_PROGRESSIVE;
    const double rate = av_q2d(av_guess_frame_rate(input.context(), stream, nullptr));
    const double slack = fields && rate > 0 ? 0.9 / rate : 0; // each field may have a packet of its own
    const std::int64_t leftOut = decoder.latestLeftOut();
    if (leftOut == INT64_MIN || shown == INT64_MIN) return false;
    return input.seconds(leftOut, stream) > input.seconds(shown, stream) + slack;
}

std::optional<FrameReader::TimedFrame> FrameReader::PictureSearch::given() {
    if (!frame && current) frame = FrameView::of(std::move(current->picture), traits);
    current.reset();
    if (!frame) return std::nullopt;
    return TimedFrame{timeOf(shown), onFrom(shown), *frame};
}

FrameReader::FrameReader(std::unique_ptr<PictureSearch> given) : search(std::move(given)) {}
FrameReader::FrameReader(FrameReader&&) noexcept = default;
FrameReader& FrameReader::operator=(FrameReader&&) noexcept = default;
FrameReader::~FrameReader() = default;

FrameReader FrameReader::open(const std::filesystem::path& path, Purpose purpose) {
    return FrameReader(std::make_unique<PictureSearch>(path, purpose));
}

const MediaFacts& FrameReader::facts() const {
    return search->facts;
}

std::optional<FrameReader::TimedFrame> FrameReader::at(double asked, const std::stop_token& stop) {
    const double time = bounded(asked);
    if (!search->shows(time)) {
        if (search->canReadOn(time))
            search->readOn(time, stop);
        else
            search->jump(time, true, stop);
        if (search->leftOutWhatIsAsked()) search->jump(time, false, stop);
        // What lies between here and there may have been passed over.
        if (stop.stop_requested() && !search->shows(time)) {
            search->forget();
            return std::nullopt;
        }
    }
    return search->given();
}

bool FrameReader::reaches(double asked) const {
    const double time = bounded(asked);
    return search->shows(time) || search->canReadOn(time);
}

std::optional<FrameReader::TimedFrame> FrameReader::keyframe(double asked) {
    search->land(bounded(asked), false);
    return search->given();
}

std::optional<FrameReader::TimedFrame> FrameReader::next() {
    if (search->shown == INT64_MIN) return at(0);
    if (!search->passedBroken()) return std::nullopt;
    search->advance();
    return search->given();
}

}
