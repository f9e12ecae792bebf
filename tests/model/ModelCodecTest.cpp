#include "core/model/ModelCodec.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

const fs::path golden = fs::path(MURBO_TESTS) / "model/golden";

/// The smallest form of a record, in compact JSON: a line behind its name.
std::string smallestForm(const std::string& wanted) {
    std::ifstream file(golden / "SmallestForms.txt");
    for (std::string name, form; file >> name && std::getline(file >> std::ws, form);)
        if (name == wanted) return form;
    return "none on file";
}

template <class T>
std::string compact(const T& record) {
    return Codec::encode(record, JsonWriter::Layout::compact);
}

/// It reads, writes back the same bytes, and every key in it is needed, unless the record is lenient.
template <class T>
void checkSmallestForm(const std::string& name) {
    SCOPED_TRACE(name + " in model/golden/SmallestForms.txt");
    const auto text = smallestForm(name);
    EXPECT_EQ(compact(Codec::decode<T>(text)), text);
    const auto whole = nlohmann::json::parse(text);
    for (const auto& [key, _] : whole.items()) {
        auto without = whole;
        without.erase(key);
        auto null = whole;
        null[key] = nullptr;
        if (name == "Look") {
            EXPECT_EQ(compact(Codec::decode<T>(without.dump())), text) << key;
            continue;
        }
        EXPECT_THROW(Codec::decode<T>(without.dump()), Problem) << key;
        EXPECT_THROW(Codec::decode<T>(null.dump()), Problem) << key;
    }
}

}

TEST(ModelCodec, haveTheirSmallestFormsOnFile) {
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

TEST(ModelCodec, aProjectWithEveryKeyComesBackToTheByte) {
    const TemporaryFolder folder;
    const auto package = golden / "everything.mbproj";
    ProjectPackage::write(ProjectPackage::read(package), folder.path, nullptr);
    for (const auto& entry : fs::recursive_directory_iterator(package)) {
        if (!entry.is_regular_file()) continue;
        const auto copy = folder / fs::relative(entry.path(), package);
        EXPECT_EQ(contentsOf(copy), contentsOf(entry.path())) << copy;
    }
}

TEST(ModelCodec, newOnesHaveTheirDefaultsAndAnIdentityOfTheirOwn) {
    EXPECT_EQ(compact(Project()), smallestForm("Project"));
    EXPECT_EQ(compact(Look()), smallestForm("Look"));
    EXPECT_EQ(compact(Framing()), smallestForm("Framing"));
    EXPECT_NE(Clip().id, Clip().id);
    Project none;
    none.ideas.emplace();
    EXPECT_EQ(Codec::decode<Project>(Codec::encode(none)), none) << "none is another thing than none yet";
}

TEST(ModelCodec, captionsAreStrictInsideALenientLook) {
    EXPECT_EQ(Codec::decode<Look>("{}"), Look());
    EXPECT_THROW(Codec::decode<Look>(R"({"captions": {"on": true}})"), Problem);
    EXPECT_THROW(Codec::decode<Look>(R"({"mix": {"muted": ["voice"]}})"), Problem);
    EXPECT_NO_THROW(
        Codec::decode<Look>(R"({"captions": {"on": true, "lines": [], "style": {"motion": "?"}}})"));
}
