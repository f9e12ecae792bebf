#include "core/model/Project.h"
#include "core/model/ProjectPackage.h"
#include "platform/base/Codec.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "tests/base/Scratch.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

const fs::path golden = fs::path(MURBO_TESTS) / "model/golden";
constexpr std::size_t plenty = 1 << 24;

/// The smallest form of a record is kept as a file: it reads, writes back the same bytes, and every key in it
/// is needed, unless the record is lenient.
template <class T>
void checkSmallestForm(const std::string& name) {
    SCOPED_TRACE(name);
    const auto text = Files::readWhole(golden / (name + ".json"), plenty);
    EXPECT_EQ(Codec::encode(Codec::decode<T>(text)), text);
    const auto whole = nlohmann::json::parse(text);
    for (const auto& [key, _] : whole.items()) {
        auto without = whole;
        without.erase(key);
        auto null = whole;
        null[key] = nullptr;
        if (name == "Look") {
            EXPECT_EQ(Codec::encode(Codec::decode<T>(without.dump())), text) << key;
            continue;
        }
        EXPECT_THROW(Codec::decode<T>(without.dump()), Problem) << key;
        EXPECT_THROW(Codec::decode<T>(null.dump()), Problem) << key;
    }
}

}

TEST(Records, haveTheirSmallestFormsOnFile) {
    checkSmallestForm<Box>("Box");
    checkSmallestForm<Spot>("Spot");
    checkSmallestForm<Framing>("Framing");
    checkSmallestForm<SourceGroup>("SourceGroup");
    checkSmallestForm<Source::Stream>("Stream");
    checkSmallestForm<Source>("Source");
    checkSmallestForm<Clip>("Clip");
    checkSmallestForm<Clip::Summary>("Summary");
    checkSmallestForm<Bookmark>("Bookmark");
    checkSmallestForm<Transcript>("Transcript");
    checkSmallestForm<Line>("Line");
    checkSmallestForm<Note>("Note");
    checkSmallestForm<Idea>("Idea");
    checkSmallestForm<murbo::Run>("Run");
    checkSmallestForm<Project>("Project");
    checkSmallestForm<Video>("Video");
    checkSmallestForm<Cut>("Cut");
    checkSmallestForm<Generator>("Generator");
    checkSmallestForm<Look>("Look");
    checkSmallestForm<Shot>("Shot");
    checkSmallestForm<Overlay>("Overlay");
    checkSmallestForm<SoundCue>("SoundCue");
    checkSmallestForm<Mix>("Mix");
    checkSmallestForm<Captions>("Captions");
    checkSmallestForm<CaptionLine>("CaptionLine");
    checkSmallestForm<CaptionLine::Piece>("Piece");
    checkSmallestForm<CaptionStyle>("CaptionStyle");
    checkSmallestForm<Move>("Move");
    checkSmallestForm<Placement>("Placement");
}

TEST(Records, aProjectWithEveryKeyComesBackToTheByte) {
    const Scratch scratch;
    const auto package = golden / "everything.mbproj";
    ProjectPackage::write(ProjectPackage::read(package), scratch.path(), nullptr);
    for (const auto& entry : fs::recursive_directory_iterator(package)) {
        if (!entry.is_regular_file()) continue;
        const auto copy = scratch.path() / fs::relative(entry.path(), package);
        EXPECT_EQ(Files::readWhole(copy, plenty), Files::readWhole(entry.path(), plenty)) << copy;
    }
}

TEST(Records, newOnesHaveTheirDefaultsAndAnIdentityOfTheirOwn) {
    EXPECT_EQ(Codec::encode(Project()), Files::readWhole(golden / "Project.json", plenty));
    EXPECT_EQ(Codec::encode(Look()), Files::readWhole(golden / "Look.json", plenty));
    EXPECT_EQ(Codec::encode(Framing()), Files::readWhole(golden / "Framing.json", plenty));
    EXPECT_NE(Clip().id, Clip().id);
    const auto cut = Cut::generated("card", 2, std::nullopt, 0.05);
    EXPECT_EQ(cut.length(), 0.1);
    EXPECT_NE(cut.source, UUID());
}

TEST(Records, noIdeasAndNoneYetAreTwoThings) {
    Project project;
    project.ideas.emplace();
    EXPECT_NE(Codec::encode(project), Codec::encode(Project()));
    EXPECT_EQ(Codec::decode<Project>(Codec::encode(project)), project);
    EXPECT_NE(project, Project());
}

TEST(Records, captionsAreStrictInsideALenientLook) {
    EXPECT_EQ(Codec::decode<Look>("{}"), Look());
    EXPECT_THROW(Codec::decode<Look>(R"({"captions": {"on": true}})"), Problem);
    EXPECT_THROW(Codec::decode<Look>(R"({"mix": {"muted": ["voice"]}})"), Problem);
    EXPECT_NO_THROW(
        Codec::decode<Look>(R"({"captions": {"on": true, "lines": [], "style": {"motion": "?"}}})"));
}

TEST(Clip, isShownByItsNameItsTitleOrWhatIsGiven) {
    struct Case {
        std::optional<std::string> name, title;
        std::string shown;
    };
    const Case cases[] = {
        {{}, {}, "otherwise"},
        {" \t", {}, "otherwise"},
        {"Best bit", {}, "Best bit · C07"},
        {" Best bit ", " The fall ", "Best bit ·  The fall "},
        {"Best bit", "  ", "Best bit · C07"},
        {{}, " The fall ", " The fall "},
        {"", "\u00A0", "otherwise"},
    };
    for (const auto& [name, title, shown] : cases) {
        Clip clip;
        clip.number = 7;
        clip.name = name;
        if (title) clip.summary = Clip::Summary{*title, ""};
        EXPECT_EQ(clip.title("otherwise"), shown);
    }
}

TEST(Source, isNamedByItsLastPart) {
    for (const auto& [path, name] :
         {std::pair{"/a/b c.mp4", "b c.mp4"}, {"b.mp4", "b.mp4"}, {"/a/b/", "b"}, {"", ""}, {"/", "/"}}) {
        Source source;
        source.path = path;
        EXPECT_EQ(source.name(), name);
    }
}

TEST(Mix, togglesLanesInTheOrderTheyWereTurnedOff) {
    Mix mix;
    mix.music = 0.5;
    mix.toggleMute(Lane::music);
    mix.toggleMute(Lane::video);
    EXPECT_EQ(mix.muted, (std::vector{Lane::music, Lane::video}));
    EXPECT_EQ(mix.level(Lane::music), 0.5);
    EXPECT_EQ(mix.level(Lane::sounds), 1);
    mix.toggleMute(Lane::music);
    mix.toggleMute(Lane::video);
    EXPECT_EQ(mix.muted, std::nullopt);
}
