#pragma once

#include "core/model/Project.h"
#include "tests/scenarios/DrivenProgram.h"

#include <functional>
#include <optional>

#include <gtest/gtest.h>

namespace murbo {

/// A test that uses the program as a person does: with a mouse and keys, by what it shows, and with the
/// project as it lies on disk. Nothing waits for a time: each step waits until what it needs is there. Where
/// one fails, a picture of the screen is left in build/scenarios.
class Scenario : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // ---- the program ----

    /// Writes a project and opens it in a window; waits until that stands.
    void open(const Project& project);
    /// Starts the program with those words; what it kept from before is still there.
    void start(const std::vector<std::string>& words, const ChildProcess::Variables& variables = {});
    DrivenProgram& program() { return *running; }
    VirtualScreen& screen() { return *shown; }
    Project onDisk() const;
    const Video& video(std::size_t at = 0); ///< as it lies on disk; stays till the next look

    // ---- what it shows ----

    std::vector<ScreenItem> items() { return running->items(); }
    /// The first item of a role whose name is that or begins with it; `within` is the name of what it lies
    /// in.
    std::optional<ScreenItem> find(const std::string& role, const std::string& name,
                                   const std::string& within = "");
    /// The same, waiting until it is there.
    ScreenItem see(const std::string& role, const std::string& name, const std::string& within = "");
    /// The same, waiting until it is there and stands still: rows may just be made anew.
    ScreenItem still(const std::string& role, const std::string& name, const std::string& within = "");
    /// The role and name of what has the keys, or nothing.
    std::string withKeys();
    /// All blocks of a kind on the timeline, "Cut", in their order.
    std::vector<ScreenItem> blocks(const std::string& kind);
    ScreenItem block(const std::string& kind, std::size_t number); ///< from 1; waits till it is still
    /// Waits until something holds; where it never does, the test ends with those words.
    void until(const std::string& what, const std::function<bool()>& holds, int seconds = 20);
    /// The same for what takes long: two minutes.
    void untilAtLast(const std::string& what, const std::function<bool()>& holds) { until(what, holds, 120); }
    /// What a viewer says of its place: "0:02.00", and its speed, "−2×", or nothing at 1 and 0.
    std::string time(const std::string& viewer);
    double seconds(const std::string& viewer);

    // ---- mouse and keys ----
    /// What is on the keyboard till the test ends: "th". False where that can't be set.
    bool setLayout(const std::string& layout);

    void hold(const std::string& keys); ///< "Alt"
    void letGo(const std::string& keys);
    void key(const std::string& keys,
             int times = 1); ///< "Ctrl+Shift+Z", or one after another: "Home Right*15 I"
    void type(const std::string& text);
    int pressed() const { return presses; } ///< keys so far, combinations as one
    int clicked() const { return clicks; }  ///< clicks and drags so far
    void click(ScreenPoint at, int button = 1);
    void click(const ScreenItem& item) { click(item.middle()); }
    /// Clicks on a field until it has the keys: rows may just be made anew beneath the mouse.
    void clickInto(const std::string& field, const std::string& within = "");
    void clickOn(const std::string& role, const std::string& name, const std::string& within = "");
    /// Types into a field, in place of what stands there.
    void typeOver(const std::string& field, const std::string& text, const std::string& within = "");
    void turnTo(const std::string& page); ///< of the sidebar; waits until it is shown
    /// Has an action of the palette done, by words that find it.
    void palette(const std::string& words);
    /// Clicks on a clip of the browser that is shown; waits until it can be played.
    void holdClip(const std::string& tag);
    /// Waits until a clip is held and can be played.
    void seesHeld(const std::string& tag);
    /// Clicks on a block of the timeline; waits until it is picked.
    void pick(const std::string& kind, std::size_t number);
    /// Turns the wheel over the inspector until that is in it, in whole.
    ScreenItem scrollTo(const std::string& role, const std::string& name);
    /// Types over a field of the inspector and presses Enter.
    void setTo(const std::string& field, const std::string& text);
    void doubleClick(ScreenPoint at);
    /// Moves the mouse and waits until the program has it: a hand makes more than one move, however busy it
    /// is.
    void moveSeen(ScreenPoint to);
    void drag(ScreenPoint from, ScreenPoint to);

    // ---- what many begin with ----
    /// A new project of that name, by keys, from the window that the program begins with.
    void makeProject(const std::string& name);

    /// A folder "footage" in the person's home, where choosing files begins, with copies of these.
    void putInHome(const std::vector<std::filesystem::path>& files);
    /// From the open sheet for footage: all of that folder, by keys.
    void addAllInHome(std::size_t files);

    // ---- the end of each ----
    /// Ctrl+Z; waits until that lies on disk.
    void takeBackTo(const Project& stood);

    /// Ctrl+Z until nothing is left; then what lies on disk is what was there at first.
    void undoToStart();

    TemporaryFolder folder;
    std::filesystem::path package = folder / "p.mbproj";
    std::filesystem::path home = folder / "h";
    Project before; ///< as it was opened

private:
    std::unique_ptr<DrivenProgram> running;
    VirtualScreen* shown = nullptr;
    Project looked;
    bool layoutSet = false;
    int presses = 0;
    int clicks = 0;
};

}
