#pragma once

#include "app/editor/playback/FrameSink.h"
#include "tests/playback/NumberedMovie.h"

#include <cmath>
#include <mutex>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <fmt/format.h>

namespace murbo {

/// Takes down which pictures a player shows, with the number that each carries.
class Screen : public FrameSink {
public:
    struct Shown {
        std::int64_t number = 0;
        int carried = 0;
        double time = 0;
        bool exact = true;
        std::string size;
        bool operator==(const Shown&) const = default;
    };

    void show(const PlayerFrame& frame) override {
        const auto& picture = frame.picture;
        const bool square = picture.width() == picture.height();
        Shown one{frame.number, square ? samples::numberIn(picture) : 0, frame.time, frame.exact,
                  fmt::format("{}x{}", picture.width(), picture.height())};
        const std::lock_guard hold(lock);
        frames.push_back(std::move(one));
    }
    std::vector<Shown> all() const {
        const std::lock_guard hold(lock);
        return frames;
    }

private:
    mutable std::mutex lock;
    std::vector<Shown> frames;
};

/// Pictures in words: runs of them in one line, and one that is shown again not at all.
class ShownRuns {
public:
    std::vector<std::string> told(const std::vector<Screen::Shown>& all) {
        std::vector<Screen::Shown> shown;
        for (auto one : all) {
            if (last && std::abs(one.time - last->time) < 1e-6) one.time = last->time;
            if (last != one) shown.push_back(one);
            last = one;
        }
        std::vector<std::string> lines;
        for (std::size_t at = 0, next = 0; at < shown.size(); at = next) {
            next = at + 1;
            while (next < shown.size() && alike(shown[next], shown[at]) &&
                   step(shown, next) == step(shown, at + 1))
                ++next;
            lines.push_back(line(shown, at, next));
        }
        return lines;
    }

private:
    using Pictures = std::vector<Screen::Shown>;

    static double off(const Screen::Shown& one) {
        return one.time - static_cast<double>(one.number) / numbered::rate;
    }
    static bool alike(const Screen::Shown& one, const Screen::Shown& other) {
        return one.size == other.size && one.exact == other.exact && std::abs(off(one) - off(other)) < 1e-6;
    }
    static std::pair<std::int64_t, int> step(const Pictures& shown, std::size_t to) {
        return {shown[to].number - shown[to - 1].number, shown[to].carried - shown[to - 1].carried};
    }

    std::string line(const Pictures& shown, std::size_t from, std::size_t until) {
        const auto &first = shown[from], &end = shown[until - 1];
        const bool many = until > from + 1;
        auto words = fmt::format("shows {}", first.number);
        if (many) words += fmt::format(" to {} by {}", end.number, step(shown, from + 1).first);
        words += fmt::format(" with {}", first.carried);
        if (many) words += fmt::format(" to {}", end.carried);
        if (std::abs(off(first)) > 1e-6) words += fmt::format(" at {:.4f}", first.time);
        if (!first.exact) words += ", near by";
        if (std::exchange(size, first.size) != first.size) words += ", " + first.size;
        return words;
    }

    std::optional<Screen::Shown> last;
    std::string size;
};

}
