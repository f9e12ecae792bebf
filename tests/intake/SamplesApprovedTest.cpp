#include "core/intake/samples/CameraPath.h"
#include "core/intake/samples/Exposure.h"
#include "core/intake/samples/Picker.h"
#include "core/intake/samples/Sharpness.h"
#include "tests/Approved.h"
#include "tests/intake/DrawnLuma.h"

#include <functional>

#include <fmt/format.h>

using namespace murbo;

namespace {

using Motion = CameraFlow::Motion;
using Behaviour = PickRules::Behaviour;

/// Numbers that are the same on each machine.
struct Numbers {
    std::uint32_t state = 1;
    int below(int most) {
        state = state * 1664525 + 1013904223;
        return static_cast<int>((state >> 8) % static_cast<std::uint32_t>(most));
    }
};

std::string exposures() {
    std::string text;
    const auto add = [&](const std::string& name, const std::function<double(int, int)>& level) {
        text += fmt::format("exposure of {}: {}\n", name, Exposure::of(drawn::luma(200, 100, level)));
    };
    for (const auto& [from, to] : {std::pair{0, 255},
                                   {48, 198},
                                   {10, 74},
                                   {96, 146},
                                   {0, 120},
                                   {130, 255},
                                   {13, 13},
                                   {200, 249},
                                   {30, 90}})
        add(fmt::format("tones from {} to {}", from, to),
            [=](int x, int) { return from + (to - from) * x / 199.0; });
    text += fmt::format("exposure of nothing: {}\n", Exposure::of({}));
    const auto good = [](int x) { return 48 + x * 0.75; };
    for (const int level : {0, 6, 7, 249, 250, 255})
        for (const int rows : {3, 12, 30})
            add(fmt::format("{} rows of {}", rows, level),
                [=](int x, int y) { return y >= 40 && y < 40 + rows ? level : good(x); });
    for (const int side : {0, 1, 2, 3})
        for (const int level : {4, 12, 13})
            add(fmt::format("a bar of {} on side {}", level, side), [=](int x, int y) {
                const bool bar = side == 0 ? x < 60 : side == 1 ? x >= 140 : side == 2 ? y < 30 : y >= 70;
                return bar ? level : good(x);
            });
    return text;
}

std::string sharpnesses() {
    std::string text;
    const auto step = [](double past, double sigma) {
        return (1 + std::erf(past / (sigma * std::sqrt(2.0)))) / 2;
    };
    const auto add = [&](const std::string& name, int width, int height,
                         const std::function<double(int, int)>& level) {
        const auto luma = drawn::luma(width, height, level);
        text += fmt::format("sharpness of {}: {}, radius {:.2f}\n", name, Sharpness::of(luma),
                            Sharpness::edgeRadius(luma));
    };
    for (const double sigma : {0.1, 0.7, 1.2, 2.5, 6.0}) {
        const auto edge = [=](double past) { return 60 + 130 * step(past, sigma); };
        const auto name = fmt::format("by {}", sigma);
        add("a disc blurred " + name, 160, 120,
            [=](int x, int y) { return edge(40 - std::hypot(x - 70, y - 60)); });
        add("columns blurred " + name, 160, 120,
            [=](int x, int) { return edge(20 - std::abs(x % 60 - 30)); });
        add("rows blurred " + name, 120, 160, [=](int, int y) { return edge(20 - std::abs(y % 60 - 30)); });
        Numbers grain;
        add("a grainy disc blurred " + name, 160, 120, [=](int x, int y) mutable {
            return edge(40 - std::hypot(x - 70, y - 60)) + grain.below(13) - 6;
        });
    }
    add("one tone", 160, 120, [](int, int) { return 120; });
    add("a speck", 2, 2, [](int x, int) { return 200 * x; });
    add("nothing", 0, 0, [](int, int) { return 0; });
    Numbers grain;
    add("grain", 160, 120, [&](int, int) { return 100 + grain.below(60); });
    add("faint edges", 160, 120, [](int x, int) { return x / 20 % 2 == 0 ? 100 : 102; });
    add("one tile", 21, 21, [](int x, int) { return x < 10 ? 40 : 200; });
    return text;
}

std::string paths() {
    const std::pair<int, Motion> stretches[] = {{10, {}},
                                                {10, {.across = 0.004}},
                                                {10, {.across = 0.004, .down = 0.003}},
                                                {10, {.down = -0.01}},
                                                {10, {.zoom = 0.01}},
                                                {10, {.roll = -0.012}},
                                                {10, {.zoom = 0.01, .roll = 0.005}},
                                                {20, {.across = 0.06}},
                                                {10, {}}};
    std::string text;
    for (const double each : {0.05, 0.12}) {
        CameraPath path;
        Numbers shake;
        int at = 0;
        for (const auto& [count, motion] : stretches)
            for (int picture = 0; picture < count; ++picture, ++at) {
                auto moved = motion;
                if (at >= 80) moved.down += (shake.below(9) - 4) * 0.002;
                const bool cut = at == 0 || at == 35 || (at > 104 && at % 2 == 0);
                path.add(at * each, cut ? std::nullopt : std::optional(moved));
            }
        for (double time = 0; time < at * each; time += 0.25) {
            path.forgetBefore(time);
            const auto moment = path.at(time);
            text +=
                fmt::format("path of {} at {}: {} {}\n", each, time,
                            rawTexts(moment.move)[static_cast<std::size_t>(moment.move)], moment.steadiness);
        }
    }
    return text;
}

std::string picked() {
    Samples given{.rate = 4};
    Numbers numbers;
    Heard heard{.voiced = {{3, 6}, {21, 22.5}, {33.05, 33.2}}};
    for (int at = 0; at < 160; ++at) {
        const int good = at / 20 % 2 == 0 ? 150 : 90;
        given.sharpness.push_back(good + numbers.below(100));
        given.exposure.push_back(good + numbers.below(60));
        given.steadiness.push_back(good + numbers.below(80));
        given.moves.push_back(static_cast<Samples::Move>(at / 9 % 6));
    }
    for (int at = 0; at < 390; ++at)
        heard.levels.push_back(static_cast<std::uint8_t>(at / 25 % 4 == 1 ? 140 + at % 50 : 60 + at % 50));
    std::string text;
    const std::vector<std::pair<const char*, PickRules>> all{{"plain", {}},
                                                             {"vlog", PickRules::vlog()},
                                                             {"action", PickRules::action()},
                                                             {"scenery", PickRules::scenery()},
                                                             {"shy",
                                                              {.sharpness = 3,
                                                               .exposure = 0.5,
                                                               .least = 0.55,
                                                               .shortest = 1,
                                                               .longest = 4,
                                                               .bridge = 1,
                                                               .voice = Behaviour::exclude,
                                                               .loud = Behaviour::avoid}}};
    const UUID source = UUID::make(), other = UUID::make();
    std::mt19937_64 generator(7);
    const auto line = [&](const Pick& pick) {
        return fmt::format("  {} {:.3f} to {:.3f}, score {:.3f}, {}{}{}\n",
                           pick.source == source ? "one" : "other", pick.start, pick.end,
                           pick.score.value_or(-1),
                           pick.move ? rawTexts(*pick.move)[static_cast<std::size_t>(*pick.move)] : "no move",
                           pick.voiced ? ", voiced" : "", pick.loud ? ", loud" : "");
    };
    for (const auto& [name, rules] : all) {
        text += fmt::format("{}:", name);
        for (const auto& score : Picker::scores(given, heard, rules))
            text += score ? fmt::format(" {:.2f}", *score) : " -";
        text += "\n";
        const auto picks = Picker::picks(source, given, heard, rules);
        for (const auto& pick : picks) text += line(pick);
        text += "spread\n";
        for (const auto& pick :
             Picker::spread({{other, 6}, {source, 40}, {other, -3}, {other, 7.5}}, 5, 2, picks, generator))
            text += line(pick);
    }
    text += "anywhere\n";
    for (int turn = 0; turn < 6; ++turn)
        for (const auto& pick : Picker::spread({{other, 9}, {source, 5}, {other, 3}}, 12, 1, {}, generator))
            text += line(pick);
    for (const int usual : {heard.usual(), heard.usual({2, 7}), 30}) {
        text += fmt::format("loud against {}:", usual);
        for (const auto& loud : heard.loudStretches({1.23, 38}, usual))
            text += fmt::format(" {:.2f} to {:.2f}", loud.from, loud.to);
        text += "\n";
    }
    return text;
}

}

TEST(Samples, areAsApproved) {
    expectApproved("intake/approved/samples.txt", exposures() + sharpnesses() + paths() + picked());
}
