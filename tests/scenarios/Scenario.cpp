#include "tests/scenarios/Scenario.h"

#include "core/model/package/ProjectPackage.h"
#include "tests/MadeMedia.h"
#include "tests/scenarios/Keyboard.h"

#include <chrono>
#include <thread>

namespace murbo {
namespace {

constexpr auto between = std::chrono::milliseconds(15); ///< from one look to the next

/// One for all tests; starting it takes as long as a scenario.
VirtualScreen& common() {
    static VirtualScreen screen(1280, 800);
    return screen;
}

std::string nameOfTest() {
    return testing::UnitTest::GetInstance()->current_test_info()->name();
}

}

void Scenario::SetUp() {
    if (const auto why = VirtualScreen::missing(); !why.empty()) GTEST_SKIP() << why;
    MURBO_NEEDS_FFMPEG();
    shown = &common();
    shown->move({1, 799}); // out of the way of what begins to hover
}

void Scenario::TearDown() {
    if (layoutSet) shown->setLayout("us");
    if (!running) return;
    const bool alive = running->process().runs();
    EXPECT_TRUE(alive) << "the program has ended with " << running->process().status() << "\n"
                       << running->log();
    for (const auto* complaint : {"TypeError", "ReferenceError", "Unable to assign", "Binding loop"})
        EXPECT_EQ(running->log().find(complaint), std::string::npos) << running->log();
    if (HasFailure()) {
        const auto file = std::filesystem::path(MURBO_BUILD) / "scenarios" / (nameOfTest() + ".jpg");
        shown->picture(file);
        std::printf("A picture of it: %s\n", file.c_str());
        for (const auto& item : items())
            if (!item.name.empty())
                std::printf("%*s%s “%s” %.0f,%.0f %.0fx%.0f%s\n", item.depth, "", item.role.c_str(),
                            item.name.c_str(), item.x, item.y, item.width, item.height,
                            item.focused ? " has the keys" : "");
    }
    running->process().kill();
    running.reset();
    shown->releaseAll();
}

// ---------------------------------------------------------------------- program --

void Scenario::open(const Project& project) {
    ProjectPackage::write(project, package, nullptr);
    before = onDisk();
    start({"--open", package.string()});
    still("List", "Timeline");
}

void Scenario::start(const std::vector<std::string>& words, const ChildProcess::Variables& variables) {
    running.reset();
    running = std::make_unique<DrivenProgram>(home, shown->name(), words, variables);
    untilAtLast("the program shows a window", [&] { return shown->hasWindow(); });
    until("keys come to it", [&] { return running->active(); });
}

/// A file may just be replaced by the next: what can't be read is looked at again.
Project Scenario::onDisk() const {
    for (int tries = 0; tries < 20; ++tries) try {
            return ProjectPackage::read(package);
        } catch (const std::exception&) {
            std::this_thread::sleep_for(between);
        }
    return ProjectPackage::read(package);
}

const Video& Scenario::video(std::size_t at) {
    static const Video none;
    looked = onDisk();
    return at < looked.videos.size() ? looked.videos[at] : none;
}

// ------------------------------------------------------------------------ shown --

std::optional<ScreenItem> Scenario::find(const std::string& role, const std::string& name,
                                         const std::string& within) {
    std::optional<int> inside;
    for (const auto& item : items()) {
        if (inside && item.depth <= *inside) inside.reset();
        const bool counts = within.empty() || inside;
        if (counts && item.role == role && item.name.starts_with(name)) return item;
        if (!inside && item.name == within) inside = item.depth;
    }
    return {};
}

ScreenItem Scenario::see(const std::string& role, const std::string& name, const std::string& within) {
    std::optional<ScreenItem> found;
    until(role + " “" + name + "” is shown", [&] { return (found = find(role, name, within)).has_value(); });
    return found.value_or(ScreenItem());
}

ScreenItem Scenario::still(const std::string& role, const std::string& name, const std::string& within) {
    auto item = see(role, name, within);
    until("“" + name + "” stands still", [&] {
        const auto stood = std::exchange(item, see(role, name, within));
        return stood.x == item.x && stood.y == item.y && stood.width == item.width;
    });
    return item;
}

std::string Scenario::withKeys() {
    std::string name;
    for (const auto& item : items())
        if (item.focused && item.depth > 0) name = item.role + " " + item.name;
    return name;
}

std::vector<ScreenItem> Scenario::blocks(const std::string& kind) {
    std::vector<ScreenItem> found;
    for (auto& item : items())
        if (item.role == "ListItem" && item.name.starts_with(kind + " ") && item.name.find(" of ") < 16)
            found.push_back(std::move(item));
    return found;
}

ScreenItem Scenario::block(const std::string& kind, std::size_t number) {
    return still("ListItem", kind + " " + std::to_string(number) + " of ");
}

void Scenario::until(const std::string& what, const std::function<bool()>& holds, int seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    do {
        if (holds()) return;
        if (!running->process().runs()) break;
        std::this_thread::sleep_for(between);
    } while (std::chrono::steady_clock::now() < end);
    throw std::runtime_error("It never came to pass that " + what + ".");
}

std::string Scenario::time(const std::string& viewer) {
    const auto item = find("StaticText", "Time ", viewer);
    return item ? item->name.substr(5) : "";
}

double Scenario::seconds(const std::string& viewer) {
    int minutes = 0;
    double rest = 0;
    std::sscanf(time(viewer).c_str(), "%d:%lf", &minutes, &rest);
    return minutes * 60 + rest;
}

// --------------------------------------------------------------- mouse and keys --

bool Scenario::setLayout(const std::string& layout) {
    return layoutSet = shown->setLayout(layout);
}

void Scenario::hold(const std::string& keys) {
    for (const auto code : Keyboard::codes(keys)) shown->keyDown(code);
}

void Scenario::letGo(const std::string& keys) {
    const auto codes = Keyboard::codes(keys);
    for (auto code = codes.rbegin(); code != codes.rend(); ++code) shown->keyUp(*code);
}

void Scenario::key(const std::string& keys, int times) {
    std::istringstream all(keys);
    for (std::string each; all >> each;) {
        const auto star = each.find('*');
        const int count = star == each.npos ? times : std::stoi(each.substr(star + 1));
        for (int at = 0; at < count; ++at, ++presses) {
            hold(each.substr(0, star));
            letGo(each.substr(0, star));
        }
    }
}

void Scenario::type(const std::string& text) {
    for (const char character : text) {
        const auto codes = Keyboard::typing(character);
        for (const auto code : codes) shown->keyDown(code);
        for (auto code = codes.rbegin(); code != codes.rend(); ++code) shown->keyUp(*code);
        ++presses;
    }
}

void Scenario::click(ScreenPoint at, int button) {
    shown->move(at);
    shown->press(button);
    shown->release(button);
    ++clicks;
}

void Scenario::clickOn(const std::string& role, const std::string& name, const std::string& within) {
    click(still(role, name, within));
}

void Scenario::clickInto(const std::string& field, const std::string& within) {
    until("“" + field + "” has the keys", [&] {
        if (see("EditableText", field, within).focused) return true;
        clickOn("EditableText", field, within);
        return false;
    });
}

void Scenario::turnTo(const std::string& page) {
    clickOn("ListItem", page, "Project");
    until(page + " is shown", [&] { return see("ListItem", page, "Project").selected; });
}

void Scenario::palette(const std::string& words) {
    key("Ctrl+K");
    until("the palette has the keys", [&] { return see("EditableText", "Commands").focused; });
    type(words);
    until("the words are typed", [&] { return see("EditableText", "Commands").value == words; });
    key("Return");
    until("it is closed", [&] { return !find("EditableText", "Commands"); });
}

void Scenario::holdClip(const std::string& tag) {
    clickOn("ListItem", tag + ",", "Browser");
    seesHeld(tag);
}

void Scenario::seesHeld(const std::string& tag) {
    until(tag + " is held", [&] {
        const auto row = find("ListItem", tag + ",", "Browser");
        const auto play = find("Button", "Play", "Source viewer");
        return row && row->selected && play && play->enabled;
    });
}

void Scenario::pick(const std::string& kind, std::size_t number) {
    click(block(kind, number));
    until("it is picked", [&] { return block(kind, number).selected; });
}

ScreenItem Scenario::scrollTo(const std::string& role, const std::string& name) {
    const auto tabs = still("PageTabList", "Tabs of the inspector");
    const double top = tabs.y + tabs.height;
    const ScreenPoint over{tabs.middle().x, top + 300};
    ScreenItem found;
    until(name + " can be reached", [&] {
        found = still(role, name, "Inspector");
        if (found.y >= top && found.y + found.height < 780) return true;
        click(over, found.y < top ? 4 : 5);
        return false;
    });
    return found;
}

void Scenario::typeOver(const std::string& field, const std::string& text, const std::string& within) {
    clickInto(field, within);
    key("Ctrl+A");
    type(text);
    until("it is typed", [&] { return see("EditableText", field, within).value == text; });
}

void Scenario::setTo(const std::string& field, const std::string& text) {
    scrollTo("EditableText", field);
    typeOver(field, text, "Inspector");
    key("Return");
}

void Scenario::doubleClick(ScreenPoint at) {
    click(at);
    click(at);
}

void Scenario::moveSeen(ScreenPoint to) {
    shown->move(to);
    until("the pointer's move is taken", [&] {
        const auto seen = running->pointer();
        return std::abs(seen.x - to.x) <= 1 && std::abs(seen.y - to.y) <= 1;
    });
}

void Scenario::drag(ScreenPoint from, ScreenPoint to) {
    shown->move(from);
    shown->press();
    for (const double share : {0.2, 0.6, 1.0})
        moveSeen({from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share});
    shown->release();
    ++clicks;
}

// ------------------------------------------------------- what many begin with --

void Scenario::makeProject(const std::string& name) {
    until("New Project has the keys", [&] { return see("Button", "New Project").focused; });
    key("Return");
    until("its name can be typed", [&] { return see("EditableText", "Name of the project").focused; });
    type(name);
    key("Return");
    see("List", "Timeline");
    package = home / "home/Videos" / (name + ".mbproj");
}

void Scenario::putInHome(const std::vector<std::filesystem::path>& files) {
    const auto place = home / "home/footage";
    std::filesystem::create_directories(place);
    for (const auto& file : files) std::filesystem::copy(file, place / file.filename());
}

void Scenario::addAllInHome(std::size_t files) {
    see("Dialog", "Add Footage");
    until("the button has the keys", [&] { return see("Button", "Choose Files").focused; });
    key("Return");
    until("the folders have them", [&] { return see("List", "Files to choose").focused; });
    see("ListItem", "footage", "Files to choose");
    key("Return");
    until("its files are listed", [&] { return see("EditableText", "Folder").value.ends_with("/footage"); });
    key("Return", static_cast<int>(files));
    see("Button", files == 1 ? "Add" : "Add " + std::to_string(files) + " Files");
    until("all are looked at", [&] { return see("Button", "Add ").enabled; });
    key("Ctrl+Return");
}

// ---------------------------------------------------------------------- the end --

void Scenario::takeBackTo(const Project& stood) {
    key("Ctrl+Z");
    until("one step takes it back", [&] { return onDisk() == stood; });
}

void Scenario::undoToStart() {
    const auto left = [&] { return find("Button", "Undo").value_or(ScreenItem()); };
    for (int step = 0; step < 100 && left().enabled; ++step) {
        const auto name = left().name;
        const auto stood = onDisk();
        key("Ctrl+Z");
        until("“" + name + "” is undone", [&] { return left().name != name || onDisk() != stood; });
    }
    EXPECT_EQ(left().name, "Undo");
    until("all is as it was", [&] { return onDisk() == before; });
}

}
