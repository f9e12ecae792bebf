// Captions, sounds and overlays, by hand.
#include "core/playbooks/Playbooks.h"
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <algorithm>

using namespace murbo;

namespace {

class Dressing : public Scenario {
protected:
    const Look& look() {
        static const Look none;
        const auto& open = video();
        return open.look ? *open.look : none;
    }
    const CaptionLine* line() { return look().captions.lines.empty() ? nullptr : &look().captions.lines[0]; }
    std::string style() { return look().captions.style ? look().captions.style->base.value_or("") : ""; }
    /// Of the box round the picked overlay, which says where in the picture it is.
    ScreenPoint boxMiddle() {
        const auto picture = still("Graphic", "Overlay, from left");
        double x = 0;
        double y = 0;
        std::sscanf(picture.name.c_str(), "Overlay, from left %lf %%, from top %lf", &x, &y);
        return picture.at(x / 100, y / 100);
    }
};

}

TEST_F(Dressing, aBandPicksCaptionsAndSoundsAndTheyGoInOneStep) {
    auto project = scenario::cutVideo();
    auto& look = project.videos.edit()[0].look.emplace();
    const auto tone = made::file("tone.wav", "-f lavfi -i sine=duration=0.4");
    for (int at = 0; at < 5; ++at)
        look.sounds.edit().push_back(
            {.file = tone.string(), .source = project.sources[1].id, .at = 0.6 + 0.35 * at, .volume = 0.5});
    open(project);
    until("all blocks are there",
          [&] { return blocks("Caption").size() == 2 && blocks("Sound").size() == 5; });
    const auto first = block("Caption", 1);
    const auto list = see("List", "Timeline of V1");
    double low = 0;
    for (const auto& sound : blocks("Sound")) low = std::max(low, sound.y + sound.height);
    // From the empty place before the captions to below the last lane of sounds.
    drag({first.x - 20, first.middle().y}, {list.x + list.width - 5, low + 2});
    until("seven are picked", [&] {
        const auto all = items();
        return std::ranges::count_if(all, [](const auto& one) {
                   return one.role == "ListItem" && one.name.ends_with(", picked");
               }) == 7;
    });
    clickOn("Button", "Remove 7 Items");
    until("they are gone", [&] { return this->look().sounds.empty(); });
    EXPECT_EQ(this->look().captions.lines.size(), 2) << "captions are hidden";
    key("Ctrl+Z");
    see("AlertMessage", "Undid Remove 7 Items");
    until("one step has them back", [&] { return onDisk() == before; });
    undoToStart();
}

TEST_F(Dressing, aCaptionIsBrokenTimedMadeBigHiddenAndReset) {
    open(scenario::cutVideo());
    doubleClick(block("Caption", 2).middle());
    until("its words can be typed", [&] { return see("EditableText", "Words of the caption").focused; });
    key("Home Right*5 Ctrl+Return");
    until("it is in two", [&] { return blocks("Caption").size() == 3; });
    until("on disk too", [&] { return line() && line()->pieces && line()->pieces->size() == 2; });
    EXPECT_EQ(line()->pieces->at(0).text, "down");

    const auto right = block("Caption", 3);
    const auto stood = line()->pieces->at(0).until;
    drag({right.x, right.middle().y}, {right.x + 25, right.middle().y});
    until("their meet has moved",
          [&] { return line()->pieces && line()->pieces->at(0).until.value_or(0) > stood.value_or(0.4); });
    pick("Caption", 3);
    palette("big caption");
    until("it is big", [&] { return block("Caption", 3).name.find(", big") != std::string::npos; });
    palette("hide caption");
    until("it is hidden", [&] { return block("Caption", 3).name.find(", hidden") != std::string::npos; });
    const auto broken = onDisk();
    palette("reset caption");
    until("its time is its own again",
          [&] { return onDisk() != broken && (!line() || !line()->pieces || !line()->pieces->at(0).until); });
    undoToStart();
}

TEST_F(Dressing, aThaiLineIsCorrectedAndAllFollows) {
    auto project = scenario::cutVideo();
    project.transcripts[project.sources[1].id].lines.edit()[0].text = "ไปกัน";
    if (!setLayout("th")) GTEST_SKIP() << "This screen's keyboard has no Thai layout.";
    open(project);
    block("Caption", 1);
    key("Ctrl+2");
    clickInto("Transcript");
    key("Ctrl+Home End G ]");
    key("P");  // เลย
    key("F6"); // the line is left
    const auto corrected = [&] { return onDisk().transcript(before.sources[1].id).lines[0].text; };
    until("the line is corrected", [&] { return corrected() == "ไปกันเลย"; });
    until("its caption too", [&] { return block("Caption", 1).name.find("ไปกันเลย") != std::string::npos; });
    const auto subtitles = folder / "out.srt";
    const auto command = std::string(MURBO_PROGRAM) + " --export " + made::quoted(package) + " V1 " +
                         made::quoted(folder / "out.mp4") + " --srt >/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_NE(contentsOf(subtitles).find("ไปกันเลย"), std::string::npos) << contentsOf(subtitles);
    undoToStart();
}

TEST_F(Dressing, presetsAreTakenSavedAndUsedInAnotherProject) {
    open(scenario::cutVideo());
    const auto tabs = still("PageTabList", "Tabs of the inspector");
    clickOn("PageTab", "Captions");
    const std::pair<const char*, const char*> presets[] = {
        {"Clean", "clean"}, {"Bold Keyword", "bold"}, {"Story", "story"}, {"Boxed", "boxed"}, {"Pop", "pop"}};
    for (const auto& [name, id] : presets) {
        clickOn("RadioButton", name);
        until(std::string(name) + " is the video's", [&] { return style() == id; });
        until("its card says so", [&] { return see("RadioButton", name).checked; });
    }
    if (!find("EditableText", "Name of the preset")) clickOn("Button", "Style", "Inspector");
    setTo("Name of the preset", "mine");
    see("RadioButton", "mine");
    until("it is kept", [&] { return find("Button", "Undo").has_value(); });
    undoToStart();
    program().process().end();

    package = folder / "other.mbproj";
    open(scenario::cutVideo());
    clickOn("PageTab", "Captions");
    EXPECT_GT(still("RadioButton", "Clean").y, tabs.y) << "the tab opens at its top";
    scrollTo("RadioButton", "mine");
    clickOn("RadioButton", "mine");
    until("it is the other's", [&] { return look().captions.style.has_value(); });
    until("and undone", [&] {
        key("Ctrl+Z");
        return onDisk() == before;
    });
}

TEST_F(Dressing, aLayoutAndAStickerAreDraggedInAndSetByHand) {
    open(scenario::cutVideo());
    turnTo("Layouts");
    const auto cut = block("Cut", 1);
    drag(still("ListItem", "Face Corner", "Library").middle(), {cut.at(0.3).x, cut.middle().y});
    until("a shot is laid out by it",
          [&] { return !look().shots.empty() && look().shots[0].playbook == "stock.layout.corner"; });
    turnTo("Playbooks");
    clickInto("Search the library");
    type("sticker");
    until("no other is listed", [&] { return !find("ListItem", "Hearts", "Library"); });
    const auto book = still("ListItem", "Sticker", "Library");
    drag(book.middle(), {cut.at(0.5).x, cut.middle().y});
    until("a sticker lies on it", [&] { return look().overlays.size() == 1; });
    EXPECT_EQ(look().overlays[0].playbook, "stock.sticker");
    pick("Overlay", 1);
    const auto middle = boxMiddle();
    drag(middle, {middle.x + 30, middle.y - 40});
    until("it is moved", [&] { return look().overlays[0].move.has_value(); });
    setTo("Rotation", "15");
    until("it is turned", [&] {
        const auto& move = look().overlays[0].move;
        return move && move->from && move->from->rotation == 15;
    });
    setTo("Sticker", "wow");
    until("it says something else", [&] {
        const auto& values = look().overlays[0].values;
        return values && values->contains("sticker") && values->at("sticker") == "wow";
    });
    undoToStart();
}

TEST_F(Dressing, anOwnPictureIsChosenAndAPlaybookIsBroughtToItsNewVersion) {
    const auto note = [&](int version, const char* where) {
        return Playbooks::load(
            folder
                .file(
                    std::string(where) + "/own.note.mbplay/playbook.json",
                    R"({"id": "own.note", "name": "Note", "version": )" + std::to_string(version) +
                        R"(, "length": 2, "params": {"photo": {"type": "media", "label": "Photo", "value": "emoji:🎈"}},
                   "layers": [{"slot": "$photo", "w": 0.3}]})")
                .parent_path());
    };
    auto project = scenario::cutVideo();
    project.videos.edit()[0].look.emplace().overlays.edit().push_back(
        {.playbook = "own.note", .source = project.sources[1].id, .at = 1, .length = 1});
    std::filesystem::create_directories(package);
    Playbooks::copy(note(1, "first"), package);
    note(2, "h/home/Movies/Murbo/Playbooks");
    putInHome({made::file("photo.png", "-f lavfi -i color=c=orange:size=64x64 -frames:v 1")});
    open(project);
    const auto overlay = [&] { return look().overlays[0]; };
    pick("Overlay", 1);
    clickOn("Button", "Update to Version 2");
    until("it is the new one", [&] { return overlay().version == 2; });
    until("there is none newer", [&] { return !find("Button", "Update to Version 2"); });
    scrollTo("Button", "Choose a file for Photo");
    clickOn("Button", "Choose a file for Photo");
    clickOn("ListItem", "footage", "Files to choose");
    clickOn("ListItem", "photo.png", "Files to choose");
    until("the picture is in the project", [&] {
        const auto values = overlay().values;
        return values && values->contains("photo") && std::filesystem::exists(package / values->at("photo"));
    });
    undoToStart();
}
