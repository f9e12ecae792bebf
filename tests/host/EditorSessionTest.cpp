#include "app/mcp/EditorSession.h"
#include "app/mcp/MCPHost.h"
#include "core/playbooks/Library.h"
#include "platform/base/Files.h"
#include "tests/ProblemOf.h"
#include "tests/editor/Lines.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::HasSubstr;

namespace {

/// An owner who works by lines on a project, and an app at the door of it.
class EditorSessionTest : public testing::Test {
protected:
    EditorSessionTest() {
        host.setSession(std::make_shared<EditorSession>(lines.editor()));
        lines(R"(["set","heldClip","C01"])", R"(["addToEnd"])");
    }

    std::string app(const char* tool, const json& arguments = json::object()) {
        std::string text;
        host.call(tool, arguments, nullptr, [&](const json& result) {
            text = (result["isError"].get<bool>() ? "failed: " : "") +
                   result["content"][0]["text"].get<std::string>();
        });
        return text;
    }
    bool isOnDisk() { return ProjectPackage::read(lines.package()) == lines.project(); }

    Lines lines;
    MCPHost host{nullptr};
};

const json renaming{{"video", "V1"}, {"title", "Theirs"}};

}

TEST_F(EditorSessionTest, anAppsChangeIsAStepOfTheOwners) {
    EXPECT_EQ(app("rename_video", renaming), "V1 is “Theirs”.");
    EXPECT_EQ(lines.steps(), (std::vector<std::string>{"Add Clip", "Rename Video"}));
    EXPECT_TRUE(isOnDisk());
    EXPECT_EQ(lines(R"(["undo"])"), did("Undid Rename Video"));
    EXPECT_THAT(app("undo_my_last"), HasSubstr("Nothing of yours to take back"));
    EXPECT_TRUE(isOnDisk());
}

TEST_F(EditorSessionTest, anOpenDragIsAStepOfItsOwnFirst) {
    lines(R"(["trim","cut 1",true,22])");
    app("rename_video", renaming);
    EXPECT_EQ(lines.steps(), (std::vector<std::string>{"Add Clip", "Drag", "Rename Video"}));
    lines(R"(["trim","cut 1",true,23])");
    EXPECT_THAT(app("undo_my_last"), HasSubstr("Nothing of yours to take back"))
        << "the drag that is under way is the owner's last change";
    EXPECT_EQ(lines.project().videos[0].cuts[0].start, 23);
    EXPECT_EQ(lines.project().videos[0].title, "Theirs");
    lines(R"(["trim","cut 1",true,24])");
    EXPECT_TRUE(host.undoToBefore(host.activity().entries().front()));
    EXPECT_EQ(lines.steps(), (std::vector<std::string>{"Add Clip", "Drag"})) << "with what came after it";
}

TEST_F(EditorSessionTest, footageThatIsNotThereIsSilent) {
    EXPECT_THAT(app("read_loudness", {{"clips", {"C01"}}}),
                HasSubstr("Loud (well above the usual level): none"));
}

TEST_F(EditorSessionTest, aSoundIsKeptInTheProjectOnce) {
    Files::createFolder(Library::sounds() / "hits");
    for (const auto* name : {"boom.wav", "not asked for.wav"})
        Files::writeWhole(Library::sounds() / "hits" / name, "RIFF");
    const json sounds{{"video", "V1"}, {"sounds", {{{"file", "hits/boom.wav"}, {"at", "C01.01"}}}}};
    EXPECT_EQ(app("set_sounds", sounds), "V1 has 1 sounds.");
    app("set_sounds", sounds);
    EXPECT_EQ(lines.project().videos[0].look->sounds[0].file, "media/sounds/boom.wav");
    const auto media = std::filesystem::directory_iterator(lines.package() / "media" / "sounds");
    EXPECT_EQ(std::distance(begin(media), end(media)), 1);
    EXPECT_EQ(problemOf([&] { EditorSession(lines.editor()).keepMedia("/nowhere/gone.wav"); }),
              "gone.wav could not be copied into the project.");
}
