#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/plan/Plan.h"
#include "tests/TemporaryFolder.h"
#include "tests/plan/Made.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

const UUID one = UUID::make();

/// A look over cuts of one source, with an owner's library of its own.
struct Looked {
    TemporaryFolder folder;
    std::filesystem::path package = folder / "a.mbproj";
    Project project;
    Video video;

    explicit Looked(std::vector<Cut> cuts) {
        Library::setOverride(folder / "library");
        Playbooks::dropListing();
        video.cuts = std::move(cuts);
        video.look.emplace();
    }
    ~Looked() {
        Library::setOverride({});
        Playbooks::dropListing();
    }

    Overlay& overlay(const std::string& playbook, double at, double length) {
        auto& overlays = video.look->overlays.edit();
        return overlays.emplace_back(
            Overlay{.playbook = playbook, .source = one, .at = at, .length = length});
    }
    void pin(const std::string& id, std::int64_t version, const std::string& json) {
        folder.file(fmt::format("a.mbproj/playbooks/{}@{}.mbplay/playbook.json", id, version), json);
    }
    Plan plan() const { return Plan::video(video, project, "", package); }
};

std::string text(const std::vector<PlacedOverlay>& overlays) {
    std::string text;
    for (const auto& each : overlays)
        text += fmt::format("{}{:.4g}-{:.4g} {}", text.empty() ? "" : ", ", each.start, each.end,
                            each.playbook().name);
    return text;
}

}

TEST(PlacedOverlay, ofTwoThatMeetEachFrameShowsOne) {
    for (int pair = 0; pair < 100; ++pair) {
        const double at = 10 + pair * 0.0371;
        const double length = std::round(1000 * (0.4 + pair % 7 / 30.0)) / 1000;
        Looked looked({Made::cut(UUID::make(), 0, 1.0 / 3), Made::cut(one, 10, 20)});
        looked.overlay("stock.flash", at, length);
        looked.overlay("stock.flash", at + length, 1);
        const Plan plan = looked.plan();
        const auto first = FrameTime::first(plan.overlays[0].start, 30);
        for (auto frame = first; frame < first + 30; ++frame)
            EXPECT_NE(plan.overlays[0].isOn(double(frame) / 30), plan.overlays[1].isOn(double(frame) / 30))
                << pair << " at " << frame;
    }
}

TEST(PlacedOverlay, standsWhereItsMomentIsFirstShown) {
    Looked looked({Made::cut(one, 10, 14), Made::cut(UUID::make(), 0, 2), Made::cut(one, 10, 12)});
    struct Case {
        const char* playbook;
        double at, length;
        const char* expected;
    };
    for (const Case& each :
         {Case{"stock.flash", 11, 2, "1-3 Flash"}, Case{"stock.flash", 9.9995, 1, "0-1 Flash"},
          Case{"stock.flash", 13.9995, 1, ""}, Case{"stock.flash", 14.5, 1, ""},
          Case{"stock.flash", 11, 0, "1-1.1 Flash"}, Case{"stock.flash", 11, NAN, "1-1.1 Flash"},
          Case{"stock.flash", 11, 1e308, "1-8 Flash"}, Case{"stock.flash", NAN, 1, ""},
          Case{"stock.nothing", 11, 1, ""}, Case{"../../etc", 11, 1, ""}, Case{"", 11, 1, ""}}) {
        looked.video.look->overlays.edit().clear();
        looked.overlay(each.playbook, each.at, each.length);
        EXPECT_EQ(text(looked.plan().overlays), each.expected) << each.playbook << " at " << each.at;
    }
    looked.video.cuts.edit().clear();
    EXPECT_EQ(text(looked.plan().overlays), "");
}

TEST(PlacedOverlay, playsTheProjectsOwnVersionAndABrokenOneCostsItselfAlone) {
    Looked looked({Made::cut(one, 0, 10)});
    looked.pin("stock.flash", 7, R"({"name": "Seven", "params": {"a": {"type": "text", "value": "x"},
        "b": {"type": "text", "value": "y"}}, "layers": [{"text": "$a"}]})");
    looked.pin("mine", 1, "{broken");
    looked.overlay("stock.flash", 1, 1).version = 7;
    looked.overlay("mine", 2, 1);
    looked.overlay("stock.flash", 3, 1);
    looked.overlay("stock.flash", 4, 1).version = 7;
    looked.video.look->overlays.edit()[3].values = Values{{"b", "z"}, {"c", "free"}};

    const Plan plan = looked.plan();
    ASSERT_EQ(text(plan.overlays), "1-2 Seven, 3-4 Flash, 4-5 Seven");
    EXPECT_EQ(*plan.overlays[0].values, (Values{{"a", "x"}, {"b", "y"}}));
    EXPECT_EQ(*plan.overlays[2].values, (Values{{"a", "x"}, {"b", "z"}, {"c", "free"}}));
    EXPECT_TRUE(plan.overlays[0].book.same(plan.overlays[2].book)) << "held twice";
    looked.overlay("stock.flash", 5, 1).version = 7;
    const Plan more = looked.plan();
    EXPECT_TRUE(more.overlays[0].values.same(more.overlays[3].values)) << "nothing filled in, and held twice";
    EXPECT_EQ(plan.overlays[2].overlay, looked.video.look->overlays[3]);
}

TEST(PlacedOverlay, generatorsThatOverlapLieInRows) {
    Looked looked({Made::cut(one, 0, 20)});
    for (const double at : {4.0, 0.0, 2.0, 6.0, 11.0}) looked.overlay("stock.generator.solid", at, 5);
    looked.overlay("stock.hook", 0, 20);
    std::string rows;
    for (const auto& each : looked.plan().overlays) rows += std::to_string(each.row);
    EXPECT_EQ(rows, "201000"); // 0-5, 2-7, 4-9, 6-11, 11-16
}

TEST(PlacedOverlay, generatedStretchesStandUnderTheirCutsNames) {
    Looked looked(
        {Made::cut(one, 0, 2), Cut::generated("stock.generator.title", 1, Values{{"title", "Hi"}}, 3),
         Cut::generated("stock.gone", 1, {}, 1), Cut::generated("stock.generator.solid", 1, {}, 1)});
    const Plan plan = looked.plan();
    ASSERT_EQ(text(plan.generated), "2-5 Title Card, 6-7 Solid Colour");
    EXPECT_EQ(plan.generated[0].overlay.id, looked.video.cuts[1].id);
    EXPECT_EQ(plan.generated[0].values->at("title"), "Hi");
    EXPECT_EQ(plan.generated[0].values->at("letters"), "FFFFFF");
    for (const auto& [time, name] : {std::pair{1.999, ""},
                                     {2.0, "Title Card"},
                                     {5.0, ""},
                                     {6.5, "Solid Colour"},
                                     {7.0, ""},
                                     {NAN, ""}}) {
        const auto* found = plan.generatedAt(time);
        EXPECT_EQ(found ? found->playbook().name : "", name) << time;
    }
}

TEST(PlacedOverlay, aLayoutIsTheShotsAndTheFirstFoundOfItsNameIsEveryones) {
    Looked looked({Made::cut(one, 0, 20)});
    looked.pin("mine", 2, R"({"name": "Two", "kind": "layout", "layers": []})");
    looked.pin("mine", 3, R"({"name": "Three", "kind": "layout", "layers": []})");
    auto& shots = looked.video.look->shots.edit();
    for (const std::int64_t version : {1, 2, 3}) {
        shots.push_back(Made::shot(one, 4.0 * version));
        shots.back().playbook = "mine";
        shots.back().version = version;
    }
    shots.push_back(Made::shot(one, 16));
    shots.back().playbook = "stock.gone";
    shots[2].move = "push";
    shots[2].zoom = 3;
    shots[2].ease = "linear";
    shots[2].focus = 0.2;

    const Plan plan = looked.plan();
    ASSERT_EQ(plan.layouts.size(), 1U);
    EXPECT_EQ(plan.layout(plan.shots[1].shot), &plan.layouts.at("mine")) << "also where its own is gone";
    EXPECT_EQ(plan.layout(plan.shots[4].shot), nullptr);
    EXPECT_EQ(plan.layout(Shot()), nullptr);
    EXPECT_EQ(plan.layouts.at("mine")->playbook.name, "Two");

    const auto& shot = plan.shots[3];
    const auto placed = PlacedOverlay::layout(shot, 14, plan.layouts.at("mine"), {{"a", "b"}});
    EXPECT_EQ(placed.overlay.id, shot.shot.id) << "readers of videos are kept by it";
    EXPECT_EQ(placed.overlay.source, one);
    EXPECT_EQ(fmt::format("{}-{} {} {}", placed.start, placed.end, placed.zoom, *placed.focus),
              "12-16 2 0.2");
    auto shaken = shot;
    shaken.shot.move = "shake";
    EXPECT_NE(*PlacedOverlay::layout(shaken, 12.1, plan.layouts.at("mine"), {}).focus, 0.2) << "as it moves";
    EXPECT_EQ(*placed.values, (Values{{"a", "b"}}));
}

TEST(Plan, valuesOfALayoutComeFromItsShotAndFraming) {
    const Book book{Playbook::decode(R"({"name": "a", "layers": [], "params": {
        "split": {"type": "number", "value": "0.9"}, "x": {"type": "number", "value": "0.1"}}})"),
                    {}};
    const auto split = [&](const Shot& shot, double framed) {
        const auto values = Plan::values(shot, book, {.split = framed});
        return Playbook::Num::parse("$split")->value(values);
    };
    for (const double framed : {0.5, 1 / 3.0, 1e-9, 123456789.125}) EXPECT_EQ(split({}, framed), framed);
    Shot shot{.split = 0.25};
    EXPECT_EQ(split(shot, 0.5), 0.25);
    shot.values = Values{{"split", "0.4"}, {"y", "1"}};
    EXPECT_EQ(Plan::values(shot, book, {}), (Values{{"split", "0.4"}, {"x", "0.1"}, {"y", "1"}}));
    EXPECT_EQ(Plan::values({}, {}, {}), Values{}) << "no such parameter";
}

TEST(Plan, staysBoundedWhateverPlaybooksAFileAsksFor) {
    Looked looked({Made::cut(one, 0, 10)});
    const Overlay many{.playbook = "stock.hook", .source = one, .at = 1, .length = 2};
    looked.video.look->overlays = std::vector<Overlay>(30'000, many);
    for (int each = 0; each < 3000; ++each) looked.overlay("gone" + std::to_string(each), 1, 1);
    std::string layers = R"({"shape": "rect"})";
    for (int each = 0; each < 12'000; ++each) layers += R"(,{"shape": "rect"})";
    for (const int version : {1, 2})
        looked.pin("large", version, R"({"name": "Large", "layers": [)" + layers + "]}");
    looked.video.cuts.edit().push_back(Cut::generated("large", 1, {}, 1));
    looked.video.cuts.edit().push_back(Cut::generated("large", 2, {}, 1));
    const Plan plan = looked.plan();
    EXPECT_EQ(plan.overlays.size(), 20'000U);
    EXPECT_EQ(plan.generated.size(), 1U);
}

TEST(Plan, findsFilesInThePackageAndInTheirPlaybookAndNowhereElse) {
    const TemporaryFolder folder;
    const auto package = folder / "a.mbproj";
    folder.file("a.mbproj/media/song.wav");
    folder.file("book/assets/own.wav");
    folder.file("book/media/song.wav");
    folder.file("outside.wav");
    std::filesystem::create_directory_symlink(folder / "", package / "media" / "out");
    std::filesystem::create_directory_symlink(folder / "", folder / "book" / "assets" / "out");
    std::filesystem::create_symlink(package / "media" / "song.wav", package / "media" / "same.wav");
    std::filesystem::create_symlink(package / "media" / "round", package / "media" / "round");
    const Book book{{}, folder / "book"};
    Plan plan;
    const auto found = [&](const std::string& name, const Book* in = nullptr) {
        const auto file = plan.file(name, in);
        return file ? file->lexically_relative(folder / "").string() : "none";
    };
    EXPECT_EQ(found("media/song.wav"), "none") << "a project that was never saved";
    EXPECT_EQ(found("media/song.wav", &book), "book/media/song.wav");
    plan.project = package;
    struct Case {
        const char* name;
        const char* ofTheLook;
        const char* ofTheBook;
    };
    for (const auto& [name, ofTheLook, ofTheBook] :
         {Case{"media/song.wav", "a.mbproj/media/song.wav", "a.mbproj/media/song.wav"},
          Case{"media/same.wav", "a.mbproj/media/song.wav", "a.mbproj/media/song.wav"},
          Case{"media/not there yet.wav", "a.mbproj/media/not there yet.wav",
               "a.mbproj/media/not there yet.wav"},
          Case{"assets/own.wav", "none", "book/assets/own.wav"},
          Case{"media/../../outside.wav", "none", "none"}, Case{"media/out/outside.wav", "none", "none"},
          Case{"media/round", "none", "none"}, Case{"assets/out/outside.wav", "none", "none"},
          Case{"assets/../../outside.wav", "none", "none"}, Case{"", "none", "none"}}) {
        EXPECT_EQ(found(name), ofTheLook) << name;
        EXPECT_EQ(found(name, &book), ofTheBook) << name;
    }
    EXPECT_EQ(plan.file("/somewhere/else.wav"), "/somewhere/else.wav");
    EXPECT_FALSE(plan.file(std::string("media/song.wav\0.mp3", 19)));
    EXPECT_FALSE(plan.file("/" + std::string(5000, 'a')));
}
