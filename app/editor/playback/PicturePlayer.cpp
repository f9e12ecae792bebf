#include "app/editor/playback/PicturePlayer.h"

#include "core/render/Renderer.h"
#include "core/render/plan/FrameTime.h"
#include "platform/image/draw/Bands.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace murbo {
namespace {

constexpr std::size_t maxAhead = 3;   // frames drawn before their time
constexpr int largestSide = 8192;     // pixels of a view
constexpr double longestSleep = 0.02; // seconds: the clock may be another's and run unevenly
constexpr double longestLate = 0.15;  // seconds after its time that a picture may still be waited for
constexpr double soon = 0.0005;       // seconds that are not worth a sleep
constexpr double frameSlack = 0.001;  // a time this little before a frame's own counts as at it

std::chrono::duration<double> seconds(double time) {
    return std::chrono::duration<double>(time);
}

/// One in how many frames is shown: at twice the rate every other one, and so on.
std::int64_t strideOf(double rate) {
    return std::max<std::int64_t>(1, std::llround(std::abs(rate)));
}

/// From one frame to the next that is shown.
std::int64_t way(double rate) {
    return rate > 0 ? strideOf(rate) : -strideOf(rate);
}

std::int64_t frameAt(const VideoComposition& composition, double time) {
    const auto number = static_cast<std::int64_t>(std::floor((time + frameSlack) * composition.rate));
    return std::clamp<std::int64_t>(number, 0, std::max<std::int64_t>(composition.frameCount() - 1, 0));
}

/// What a video shows at any time, as its still does.
VideoComposition::Moment momentAt(const VideoComposition& composition, double time) {
    const auto& segments = composition.segments;
    const auto on = std::ranges::find_if(
        segments, [&](const auto& segment) { return !FrameTime::reached(segment.end(), time); });
    const auto& segment = on == segments.end() ? segments.back() : *on;
    const double at = std::max(time, segment.start);
    return {static_cast<std::size_t>(&segment - segments.data()), at,
            FrameTime::asked(segment.from, at - segment.start, segment.lastMoment)};
}

Bitmap drawn(const Image& image, Size frame, int width, int height) {
    auto target = Bitmap::toBeFilled(width, height);
    const auto fitted = image.transformed(Transform().scaled(width / frame.width, height / frame.height));
    Bands::draw(fitted, target);
    return target;
}

}

PicturePlayer::PicturePlayer(PlayerClock& given) : clock(given) {
    drawing = std::jthread([this](const std::stop_token& ending) { draw(ending); });
    presenting = std::jthread([this](const std::stop_token& ending) { present(ending); });
}

PicturePlayer::~PicturePlayer() {
    drawing.request_stop();
    presenting.request_stop();
    give([](PictureOrder&) {});
}

void PicturePlayer::give(const std::function<void(PictureOrder&)>& change) {
    const std::lock_guard hold(lock);
    superseding.request_stop();
    superseding = {};
    change(order);
    order.superseded = superseding.get_token();
    ++order.number;
    if (!order.near) ahead.clear(); // a moving hand sees what comes by
    changed.notify_all();
}

void PicturePlayer::setSink(std::shared_ptr<FrameSink> next, int width, int height) {
    {
        const std::lock_guard hold(showing);
        sink.swap(next);
    }
    const bool shows = next != nullptr || sink != nullptr;
    if (!shows) return;
    give([&](PictureOrder& given) {
        const bool drawn = sink && width > 0 && height > 0;
        given.width = drawn ? std::min(width, largestSide) : 0;
        given.height = drawn ? std::min(height, largestSide) : 0;
    });
}

void PicturePlayer::load(std::shared_ptr<const VideoComposition> composition) {
    give([&](PictureOrder& given) {
        given.composition = std::move(composition);
        given.rate = 0;
        given.near = false;
        lastShown.reset();
    });
}

void PicturePlayer::stand(bool near) {
    give([&](PictureOrder& given) {
        given.rate = 0;
        given.near = near;
    });
}

void PicturePlayer::run(bool anew) {
    give([&](PictureOrder& given) {
        given.rate = clock.rate();
        given.near = false;
        if (!given.composition) return;
        // Where it stood the order to run may have overtaken the picture.
        if (anew || lastShown != frameAt(*given.composition, clock.place())) lastShown.reset();
    });
}

void PicturePlayer::redraw() {
    give([](PictureOrder&) {});
}

PicturePlayer::Counts PicturePlayer::counts() const {
    const std::lock_guard hold(lock);
    return count;
}

// ---------------------------------------------------------------- the drawing thread

void PicturePlayer::draw(const std::stop_token& ending) {
    std::uint64_t done = 0;
    while (!ending.stop_requested()) {
        PictureOrder now;
        {
            std::unique_lock hold(lock);
            if (!changed.wait(hold, ending, [&] { return order.number != done; })) return;
            now = order;
        }
        done = now.number;
        if (turnedTo != now.composition) {
            turnedTo = now.composition;
            if (turnedTo) footage.turnTo(turnedTo);
        }
        if (!now.composition || now.composition->frameCount() == 0 || now.width == 0) continue;
        if (now.rate == 0)
            standStill(now);
        else
            drawOn(now);
    }
}

/// Shows the picture of the place where the clock stands; then makes ready what a step may ask for.
void PicturePlayer::standStill(const PictureOrder& now) {
    const double place = clock.place();
    const auto moment = momentAt(*now.composition, place);
    const auto number = frameAt(*now.composition, place);
    if (now.near) {
        deliver(now, moment, footage.nearest(moment), number);
        if (now.superseded.stop_requested()) return;
    }
    const auto picture = footage.at(moment, 0, now.superseded);
    if (now.superseded.stop_requested() || !deliver(now, moment, picture, number)) return;
    footage.readAround(moment);
}

/// Draws frame after frame a little ahead of the clock until another order comes.
void PicturePlayer::drawOn(const PictureOrder& now) {
    std::optional<std::int64_t> last;
    while (true) {
        {
            std::unique_lock hold(lock);
            changed.wait(hold, [&] { return order.number != now.number || ahead.size() < maxAhead; });
            if (order.number != now.number) return;
            if (!last)
                last = lastShown ? *lastShown : frameAt(*now.composition, clock.place()) - way(now.rate);
        }
        const auto next = nextFrame(now, *last);
        if (next < 0 || next >= now.composition->frameCount()) {
            std::unique_lock hold(lock);
            changed.wait(hold, [&] { return order.number != now.number; });
            return;
        }
        const double start = PlayerClock::computer();
        const auto moment = now.composition->moment(next);
        const auto late = [&] { return (clock.place() - moment.time) / now.rate > longestLate; };
        const auto picture = now.rate > 0 ? footage.at(moment, now.rate, now.superseded)
                                          : footage.backward(moment, now.rate, now.superseded, late);
        if (!deliver(now, moment, picture, next)) return;
        cost += (PlayerClock::computer() - start - cost) / 8;
        last = next;
    }
}

/// The frame after the last; where its time is over already, the one that will be on when it is drawn.
std::int64_t PicturePlayer::nextFrame(const PictureOrder& now, std::int64_t last) const {
    const auto stride = way(now.rate);
    const auto next = last + stride;
    const double over = static_cast<double>(next + stride) / now.composition->rate;
    const double place = clock.place();
    if ((place - over) * now.rate < 0) return next;
    const double then = place + now.rate * std::min(cost, 0.25);
    const auto due = frameAt(*now.composition, std::clamp(then, 0.0, now.composition->length()));
    return now.rate > 0 ? std::max(due, next) : std::min(due, next);
}

/// Draws a picture and puts it in line to be shown; false once another order has come.
bool PicturePlayer::deliver(const PictureOrder& now, const VideoComposition::Moment& moment,
                            const PlayedFootage::PlayedPicture& picture, std::int64_t number) {
    if (now.superseded.stop_requested() && !now.near) return false;
    try {
        auto& box = *now.composition->box;
        const auto plan = box.plan();
        const auto image =
            Renderer::render(picture.image, picture.source, *plan, moment.time, box.captions(), box.media());
        PlayerFrame frame{drawn(image, plan->frame, now.width, now.height), moment.time, number,
                          picture.exact};
        const std::lock_guard hold(lock);
        const bool passing = now.near && order.near && order.composition == now.composition;
        if (order.number != now.number && !passing) return false;
        ahead.push_back({now.number, std::move(frame), now.rate == 0});
        changed.notify_all();
    } catch (const std::exception&) {
        // Nothing to draw it in: the picture before stays.
    }
    return true;
}

// ---------------------------------------------------------------- the presenting thread

void PicturePlayer::present(const std::stop_token& ending) {
    std::unique_lock hold(lock);
    // Once it is to end, no wait lets go of the lock any more.
    while (changed.wait(hold, ending, [this] { return !ahead.empty(); }) && !ending.stop_requested()) {
        const double wait = untilDue(ahead.front());
        if (wait > soon) {
            const auto number = order.number;
            changed.wait_for(hold, ending, seconds(std::min(wait, longestSleep)),
                             [&] { return order.number != number; });
        } else {
            showDue(hold);
        }
    }
}

/// Seconds until a picture is due; 0 or less where it is.
double PicturePlayer::untilDue(const Drawn& drawn) const {
    if (drawn.atOnce || order.rate == 0) return 0;
    return (drawn.frame.time - clock.place()) / order.rate;
}

/// Shows the last of those that are due.
void PicturePlayer::showDue(std::unique_lock<std::mutex>& hold) {
    while (ahead.size() > 1 && untilDue(ahead[1]) <= 0) ahead.pop_front();
    const auto next = std::move(ahead.front());
    ahead.pop_front();
    ++count.shown;
    if (!next.atOnce && lastShown) {
        const auto passed = std::abs(next.frame.number - *lastShown) / strideOf(order.rate);
        count.dropped += std::max<std::int64_t>(passed - 1, 0);
    }
    lastShown = next.frame.number;
    changed.notify_all();
    hold.unlock();
    {
        const std::lock_guard calling(showing);
        if (sink) sink->show(next.frame);
    }
    hold.lock();
}

}
