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

template <class... T>
void checkSmallestForms(std::initializer_list<const char*> names) {
    const auto* name = names.begin();
    (checkSmallestForm<T>(*name++), ...);
}

TEST(ModelCodec, haveTheirSmallestFormsOnFile) {
    checkSmallestForms<Box, Spot, Framing, SourceGroup, Source::Stream, Source, Clip, Clip::Summary, Bookmark,
                       Transcript, Line, Note, Idea, murbo::Run, Project, Video, Cut, Generator, Look, Shot,
                       Overlay, SoundCue, Mix, Captions, CaptionLine, CaptionLine::Piece, CaptionStyle, Move,
                       Placement>({"Box",     "Spot",         "Framing",   "SourceGroup", "Stream",
                                   "Source",  "Clip",         "Summary",   "Bookmark",    "Transcript",
                                   "Line",    "Note",         "Idea",      "Run",         "Project",
                                   "Video",   "Cut",          "Generator", "Look",        "Shot",
                                   "Overlay", "SoundCue",     "Mix",       "Captions",    "CaptionLine",
                                   "Piece",   "CaptionStyle", "Move",      "Placement"});
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
