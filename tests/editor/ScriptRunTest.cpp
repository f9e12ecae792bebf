#include "app/editor/script/ScriptRun.h"
#include "core/model/package/History.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/TemporaryFolder.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr;
namespace {

/// What a run of these lines prints, over a project with one video of some seconds or with none.
std::string printed(const std::string& lines, double seconds = 4, const TemporaryFolder& folder = {}) {
    Project project;
    project.sources.edit() = {{.path = folder / "gone.mp4", .length = 10}};
    if (seconds > 0) {
        const Cut cut{.source = project.sources[0].id, .start = 2, .end = 2 + seconds};
        project.videos.edit() = {{.number = 1, .cuts = std::vector{cut}}};
    }
    ProjectPackage::write(project, folder / "p.mbproj", nullptr);
    testing::internal::CaptureStdout();
    ScriptRun run(folder / "p.mbproj", folder.file("lines", lines));
    int ends = 0;
    QEventLoop loop;
    QObject::connect(&run, &ScriptRun::ended, &loop, [&] { ++ends, loop.quit(); });
    loop.exec();
    for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
    EXPECT_EQ(ends, 1);
    return testing::internal::GetCapturedStdout();
}

}

TEST(ScriptRun, theFirstLineMeetsAVideoThatIsLoaded) {
    EXPECT_THAT(printed("[\"state\"]\n"), HasSubstr("\"span\":[0,4]"));
}

TEST(ScriptRun, answersALineEachAndGoesOnAfterFaults) {
    const auto answers = printed("\n  \n[\"unknown\"]\n{\n\xFF\n[\"timecode\",\"clock\",61]");
    const std::string unread = "\\{\"ok\":false,\"error\":\"It is not valid JSON: [^\n]*\n";
    EXPECT_THAT(answers, testing::MatchesRegex("\\{\"ok\":false,\"error\":\"[^\n]*“unknown”[^\n]*\n" +
                                               unread + unread + "\\{\"ok\":true,\"value\":\"1:01\"\\}\n"));
}

TEST(ScriptRun, aLineMayComeInTwoPieces) {
    EXPECT_EQ(printed(std::string(65530, '\n') + R"(["timecode","clock",61])"),
              "{\"ok\":true,\"value\":\"1:01\"}\n");
}

TEST(ScriptRun, aLineWaitsForTheOneBeforeAndTheStepsOutliveTheRun) {
    const TemporaryFolder folder;
    EXPECT_EQ(printed("[\"wait\",0.05]\n[\"setLanguage\",\"en\"]\n[\"timecode\",\"clock\",61]", 0, folder),
              "{\"ok\":true}\n{\"ok\":true,\"step\":\"Set Language\"}\n{\"ok\":true,\"value\":\"1:01\"}\n");
    EXPECT_EQ(ProjectPackage::readHistory(folder / "p.mbproj").undoName(), "Set Language");
}
