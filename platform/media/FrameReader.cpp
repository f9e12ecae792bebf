#include "platform/media/FrameReader.h"

#include "platform/base/Problem.h"
#include "platform/media/Facts.h"
#include "platform/media/FrameView.h"
#include "platform/media/PictureDecoder.h"

namespace murbo {

namespace {

// Times that are asked for come from sums of doubles, and some formats round theirs to a millisecond.
constexpr double timeTolerance = 0.0005;
// Reading on is given up for a jump when that saves decoding more than this, about what a jump itself costs.
constexpr double worthAJump = 0.5;
// How far ahead reading on is tried in formats that don't tell where their keyframes lie.
constexpr double blindReach = 3;
// The first step back where a jump landed too late; then twice as far, and so on.
constexpr double firstStepBack = 2;
// Decoders hold pictures back for less than this.
constexpr double mostHeldBack = 1;
// Longer broken stretches than so many times what the decoder passes over at once end the reading.
constexpr int mostStretches = 32;

// Far enough for any file, and safe to calculate with.
double bounded(double time) {
    return std::isnan(time) ? 0 : std::clamp(time, -1e9, 1e9);
}

PictureDecoder::Threads threads(FrameReader::Purpose purpose) {
    const bool stills = purpose == FrameReader::Purpose::stills;
    return stills ? PictureDecoder::Threads::one : PictureDecoder::Threads::several;
}

AVStream* pictureOf(const Input& input) {
    if (AVStream* stream = input.picture()) return stream;
    throw Problem("“" + input.path().filename().string() + "” has no picture.");
}

}

// `current` is the picture given last, `upcoming` the one behind it; together they tell how long `current` is
// on.
struct FrameReader::Parts {
    Parts(const std::filesystem::path& path, Purpose purpose)
        : input(path),
          stream(pictureOf(input)),
          traits(FrameView::traits(input.context(), stream)),
          facts(Facts::of(input)),
          decoder(input, stream, threads(purpose)) {
        input.readOnly(stream);
        if (purpose == Purpose::sampling) decoder.onlySample();
        tolerance = std::min(timeTolerance, av_q2d(stream->time_base) / 2) + 1e-6;
    }

    double timeOf(const PictureDecoder::Decoded& picture) const {
        return input.seconds(picture.ticks, stream);
    }
    bool comesOn(const std::optional<PictureDecoder::Decoded>& picture, double time) const {
        return picture && timeOf(*picture) <= time + tolerance;
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

    Input input;
    AVStream* stream;
    PictureTraits traits;
    MediaFacts facts;
    PictureDecoder decoder;
    double tolerance = 0;

    std::optional<PictureDecoder::Decoded> current;
    std::optional<PictureDecoder::Decoded> upcoming;
    std::optional<Frame> frame; ///< of `current`, made when it is first given
    std::int64_t shown = INT64_MIN;
    bool currentIsFirst = false;
};

bool FrameReader::Parts::shows(double time) const {
    if (shown == INT64_MIN) return false;
    const double since = input.seconds(shown, stream);
    if (since > time + tolerance) return currentIsFirst;
    if (upcoming || decoder.isAtEnd()) return !comesOn(upcoming, time);
    const double passed = input.seconds(decoder.readUpTo(), stream) - mostHeldBack;
    return time <= std::max(since + tolerance, passed);
}

// Decoding on costs what lies between; a jump costs what lies between its keyframe and the time.
bool FrameReader::Parts::canReadOn(double time) const {
    if (shown == INT64_MIN || input.seconds(shown, stream) > time + tolerance) return false;
    if (decoder.hasFailed()) return false;
    const double position = input.seconds(decoder.readUpTo(), stream);
    if (time <= position + worthAJump) return true;
    const std::int64_t target = input.ticks(time, stream);
    const AVIndexEntry* key = avformat_index_get_entry_from_timestamp(stream, target, AVSEEK_FLAG_BACKWARD);
    if (!key || avformat_index_get_entries_count(stream) < 2) return time <= position + blindReach;
    return input.seconds(key->timestamp, stream) <= position + worthAJump;
}

void FrameReader::Parts::advance() {
    if (upcoming) {
        shown = upcoming->ticks;
        current = std::exchange(upcoming, std::nullopt);
        frame.reset();
        currentIsFirst = false;
    }
    upcoming = decoder.next();
}

// Any picture that is asked for next takes a jump.
void FrameReader::Parts::forget() {
    shown = INT64_MIN;
    current.reset();
    upcoming.reset();
    frame.reset();
}

void FrameReader::Parts::readOn(double time, const std::stop_token& stop) {
    decoder.windTo(input.ticks(inside(time), stream));
    if (!upcoming) upcoming = decoder.next();
    while (comesOn(upcoming, time) && !stop.stop_requested()) advance();
    decoder.stopWinding();
}

// Whether there is a picture behind the one shown, however long the broken stretch between them.
bool FrameReader::Parts::passedBroken() {
    for (int tries = 0; !upcoming && tries < mostStretches; ++tries) {
        if (decoder.isAtEnd() || decoder.hasFailed()) break;
        upcoming = decoder.next();
    }
    return upcoming.has_value();
}

// Behind the end the last picture is asked for, and those around it must be whole too.
double FrameReader::Parts::inside(double time) const {
    return facts.length > 0 ? std::min(time, facts.length) : time;
}

bool FrameReader::Parts::isAtFileStart(double time) const {
    const double first = stream->start_time == AV_NOPTS_VALUE ? 0 : input.seconds(stream->start_time, stream);
    return !(time > first);
}

// Where a jump lands is the format's guess: it counts only if what it finds is on by then.
void FrameReader::Parts::land(double time, bool winding) {
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

void FrameReader::Parts::jump(double time, bool winding, const std::stop_token& stop) {
    land(time, winding);
    while (comesOn(upcoming, time) && !stop.stop_requested()) advance();
    decoder.stopWinding();
}

// Winding passes over pictures that no other needs; where times are uneven it may have been the very one.
bool FrameReader::Parts::leftOutWhatIsAsked() const {
    const bool fields = stream->codecpar->field_order > AV_FIELD_PROGRESSIVE;
    const double rate = av_q2d(av_guess_frame_rate(input.context(), stream, nullptr));
    const double slack = fields && rate > 0 ? 0.9 / rate : 0; // each field may have a packet of its own
    const std::int64_t leftOut = decoder.latestLeftOut();
    if (leftOut == INT64_MIN || shown == INT64_MIN) return false;
    return input.seconds(leftOut, stream) > input.seconds(shown, stream) + slack;
}

std::optional<FrameReader::TimedFrame> FrameReader::Parts::given() {
    if (!frame && current) frame = FrameView::of(std::move(current->picture), traits);
    current.reset();
    if (!frame) return std::nullopt;
    return TimedFrame{input.seconds(shown, stream), *frame};
}

FrameReader::FrameReader(std::unique_ptr<Parts> given) : parts(std::move(given)) {}
FrameReader::FrameReader(FrameReader&&) noexcept = default;
FrameReader& FrameReader::operator=(FrameReader&&) noexcept = default;
FrameReader::~FrameReader() = default;

FrameReader FrameReader::open(const std::filesystem::path& path, Purpose purpose) {
    return FrameReader(std::make_unique<Parts>(path, purpose));
}

double FrameReader::slack() const {
    return parts->tolerance;
}

const MediaFacts& FrameReader::facts() const {
    return parts->facts;
}

std::optional<FrameReader::TimedFrame> FrameReader::at(double asked, const std::stop_token& stop) {
    const double time = bounded(asked);
    if (!parts->shows(time)) {
        if (parts->canReadOn(time))
            parts->readOn(time, stop);
        else
            parts->jump(time, true, stop);
        if (parts->leftOutWhatIsAsked()) parts->jump(time, false, stop);
        // What lies between here and there may have been passed over.
        if (stop.stop_requested() && !parts->shows(time)) {
            parts->forget();
            return std::nullopt;
        }
    }
    return parts->given();
}

std::optional<FrameReader::TimedFrame> FrameReader::keyframe(double asked) {
    parts->land(bounded(asked), false);
    return parts->given();
}

std::optional<FrameReader::TimedFrame> FrameReader::next() {
    if (parts->shown == INT64_MIN) return at(0);
    if (!parts->passedBroken()) return std::nullopt;
    parts->advance();
    return parts->given();
}

}
