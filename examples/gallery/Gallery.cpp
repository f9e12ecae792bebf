// Draws what playbooks can do over footage, into contact sheets: every playbook of the stock at five moments,
// and every effect, entrance, hold, blend, drift and transition by its name.
//
//   gallery FOLDER PICTURE FOOTAGE…    FOOTAGE as in Scene.h; PICTURE is what is given for media

#include "Scene.h"
#include "Sheet.h"
#include "core/model/Entrance.h"
#include "core/model/Transition.h"
#include "core/playbooks/Drift.h"
#include "core/playbooks/Effect.h"
#include "core/playbooks/Hold.h"
#include "core/playbooks/LayerBlend.h"
#include "core/playbooks/Stock.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"

#include <cmath>
#include <cstdio>

#include <fmt/format.h>

namespace murbo {
namespace {

constexpr Size cell{216, 384};
constexpr double placedAt = 2; // video seconds

struct Gallery {
    std::filesystem::path folder;
    std::string picture;
    std::vector<Scene> scenes;

    void overview() const;
    void stock() const;
    void words() const;
    void write(const Sheet& sheet, const std::string& name) const {
        const auto file = folder / (name + ".jpg");
        sheet.write(file);
        fmt::print("{}\n", file.string());
    }
};

/// What a playbook needs to be shown: media that have no default.
Values filledIn(const Book& book, const Gallery& gallery, const Scene& scene) {
    Values values;
    if (book.id() == "stock.replay") values["clip"] = fmt::format("rec:{}-{}", scene.from, scene.from + 2);
    if (book.id() == "stock.generator.title") values["subtitle"] = "and a line under it";
    if (!book.playbook.params) return values;
    for (const auto& [name, param] : *book.playbook.params)
        if (param.type == "media" && !values.contains(name)) values[name] = gallery.picture;
    return values;
}

PlacedOverlay placed(const Book& book, const Values& values, const Scene& scene, double length) {
    PlacedOverlay placed{.start = placedAt, .end = placedAt + length, .book = book};
    placed.overlay.source = scene.source();
    placed.overlay.length = length;
    placed.values = book.values(values);
    return placed;
}

Plan with(const Book& book, const Values& values, const Scene& scene, double length) {
    if (book.playbook.kind == "layout") {
        Plan plan = scene.plan();
        for (auto& shot : plan.shots) shot.shot.playbook = book.id();
        plan.layouts.emplace(book.id(), book);
        return plan;
    }
    Plan plan = scene.filled();
    plan.overlays = {placed(book, values, scene, length)};
    return plan;
}

/// Five moments of a length: just in, early, in the middle, late, just going.
std::vector<double> moments(double length) {
    std::vector<double> times;
    for (const double share : {0.04, 0.2, 0.5, 0.8, 0.97}) times.push_back(share * length);
    return times;
}

void addRow(Sheet& sheet, const Scene& scene, const Plan& plan, double length, const std::string& name) {
    sheet.row();
    for (const double time : moments(length))
        sheet.add(scene.still(plan, placedAt + time), plan.frame, fmt::format("{}{:.2f} s", name, time));
}

/// The moment of a playbook at which most of it is seen.
double best(const Playbook& playbook) {
    const double length = playbook.naturalLength();
    return length < 1 ? length * 0.1 : length * 0.4;
}

void Gallery::overview() const {
    Sheet sheet("What comes with Murbo", {cell.width * 0.75, cell.height * 0.75});
    const Scene& scene = scenes.front();
    std::size_t shown = 0;
    for (const Book& book : Stock::books()) {
        if (shown++ % 9 == 0) sheet.row();
        const Plan plan = with(book, filledIn(book, *this, scene), scene, book.playbook.naturalLength());
        sheet.add(scene.still(plan, placedAt + best(book.playbook)), plan.frame, book.playbook.name);
    }
    write(sheet, "stock");
}

void Gallery::stock() const {
    for (const Book& book : Stock::books()) {
        Sheet sheet(fmt::format("{} ({})", book.playbook.name, book.id()), cell);
        const double length = book.playbook.naturalLength();
        for (const Scene& scene : scenes)
            addRow(sheet, scene, with(book, filledIn(book, *this, scene), scene, length), length, "");
        write(sheet, book.id());
    }
}

/// A playbook of one's own, as JSON with its layers.
Book book(const std::string& layers, const std::string& timing = R"({"in": 0.6, "out": 0.6})") {
    return {Playbook::decode(fmt::format(
                R"({{"id": "gallery", "name": "Gallery", "length": 3, "timing": {}, "layers": [{}]}})",
                timing, layers)),
            std::nullopt};
}

constexpr const char* card =
    R"("text": "Hello 😄", "style": "bold", "size": 120, "color": "111111", "outline": "", "box": "FFFFFF", "w": 0.7)";

/// A row for each word: a layer that moves, at moments of its three seconds.
template <typename Words, typename Layer>
Sheet moving(const std::string& title, const Words& words, const Scene& scene,
             const std::vector<double>& times, Layer layer) {
    Sheet sheet(title, {cell.width * 0.75, cell.height * 0.75});
    for (const auto& word : words) {
        const Plan plan = with(book(layer(word)), {}, scene, 3);
        sheet.row();
        for (const double time : times)
            sheet.add(scene.still(plan, placedAt + time), plan.frame, fmt::format("{} {:.2f}", word, time));
    }
    return sheet;
}

/// All words in one row for each footage.
template <typename Words, typename Layer>
Sheet still(const std::string& title, const Words& words, const std::vector<Scene>& scenes, Layer layer) {
    Sheet sheet(title, cell);
    for (const Scene& scene : scenes) {
        std::size_t shown = 0;
        for (const auto& word : words) {
            if (shown++ % 8 == 0) sheet.row();
            const Plan plan = with(book(layer(word), R"({"in": 0, "out": 0})"), {}, scene, 3);
            sheet.add(scene.still(plan, placedAt + 1), plan.frame, std::string(word));
        }
    }
    return sheet;
}

Sheet transitions(const Scene& scene) {
    Sheet sheet("Transitions", {cell.width * 0.75, cell.height * 0.75});
    for (const auto name : rawTexts(Transition{})) {
        Plan plan = scene.filled();
        plan.shots[0].implicit = false;
        plan.shots[0].shot.transition = name;
        sheet.row();
        for (const double time : {0.0, 0.06, 0.12, 0.18, 0.24, 0.3})
            sheet.add(scene.still(plan, time), plan.frame, fmt::format("{} {:.2f}", name, time));
    }
    return sheet;
}

void Gallery::words() const {
    std::vector<std::string> looks{"as it is"};
    for (const auto word : rawTexts(Effect{}))
        looks.emplace_back(word == "tint:RRGGBB" ? "tint:3A86FF" : word);
    write(still("Effects", looks, scenes,
                [](const auto& word) {
                    const std::string effect = word == "as it is" ? "" : fmt::format("\"{}\"", word);
                    return fmt::format(R"({{"slot": "under", "fill": true, "effects": [{}]}})", effect);
                }),
          "effects");
    write(still("Blends: a picture and a gradient over the footage", rawTexts(Blend{}), scenes,
                [&](const auto word) {
                    return fmt::format(
                        R"({{"image": "{}", "w": 0.7, "y": 0.28, "blend": "{}"}},
                           {{"shape": "rect", "color": "FF2D92", "gradient": "0A84FF", "w": 0.8, "h": 0.3, "y": 0.72, "blend": "{}"}})",
                        picture, word, word);
                }),
          "blends");
    const std::vector<std::string> looped{"uncut", "cut out", "text behind"};
    write(
        still(
            "Cut-outs", looped, scenes,
            [](const auto& word) -> std::string {
                if (word == "uncut") return R"({"slot": "content", "fill": true})";
                const std::string cut = R"({"slot": "content", "fill": true, "cutout": true})";
                if (word == "cut out") return R"({"shape": "rect", "color": "00A878", "fill": true},)" + cut;
                return R"({"text": "WOW", "style": "bold", "size": 300, "y": 0.12}, {"slot": "under", "fill": true, "cutout": true})";
            }),
        "cut-outs");
    const Scene& scene = scenes.front();
    write(moving("Entrances over 0.6 seconds", rawTexts(Entrance{}), scene,
                 {0.03, 0.12, 0.24, 0.36, 0.48, 0.62},
                 [](const auto word) { return fmt::format(R"({{{}, "in": "{}"}})", card, word); }),
          "entrances");
    write(moving("Exits over 0.6 seconds", rawTexts(Entrance{}), scene, {2.4, 2.52, 2.64, 2.76, 2.88, 2.97},
                 [](const auto word) { return fmt::format(R"({{{}, "out": "{}"}})", card, word); }),
          "exits");
    write(moving("Holds", rawTexts(Hold{}), scene, {0.0, 0.15, 0.3, 0.5, 0.8, 1.5},
                 [](const auto word) { return fmt::format(R"({{{}, "hold": "{}"}})", card, word); }),
          "holds");
    write(moving("Drifts", rawTexts(Drift{}), scene, {0.1, 0.4, 0.8, 1.2, 2.0, 2.8},
                 [](const auto word) {
                     return fmt::format(R"({{"particles": "{}", "count": 40, "w": {}, "drift": "{}"}})",
                                        word == "burst" ? "confetti" : "💗,🔥,😂", word == "burst" ? 0.03 : 0.1,
                                        word);
                 }),
          "drifts");
    write(transitions(scene), "transitions");
}

int run(int count, char** arguments) {
    if (count < 4) {
        fmt::print(stderr, "gallery FOLDER PICTURE FOOTAGE…\n");
        return 2;
    }
    Gallery gallery{arguments[1], std::filesystem::absolute(arguments[2]).string(), {}};
    Files::createFolder(gallery.folder);
    for (int at = 3; at < count; ++at) gallery.scenes.emplace_back(arguments[at]);
    gallery.overview();
    gallery.stock();
    gallery.words();
    return 0;
}

}
}

int main(int count, char** arguments) {
    try {
        return murbo::run(count, arguments);
    } catch (const murbo::Problem& problem) {
        fmt::print(stderr, "{}\n", problem.what());
        return 1;
    }
}
