#include "app/editor/script/ScriptRun.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/TemporaryFolder.h"

#include <QEventLoop>

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr;
namespace {

/// What a run of these lines prints, over a project of one video of four seconds.
std::string printed(const std::string& lines) {
    const TemporaryFolder folder;
    Project project;
    project.sources.edit() = {{.path = folder / "gone.mp4", .length = 10}};
    project.videos.edit() = {{.number = 1}};
    project.videos.edit()[0].cuts = std::vector<Cut>{{.source = project.sources[0].id, .start = 2, .end = 6}};
    ProjectPackage::write(project, folder / "p.mbproj", nullptr);
    testing::internal::CaptureStdout();
    ScriptRun run(folder / "p.mbproj", folder.file("lines", lines));
    QEventLoop loop;
    QObject::connect(&run, &ScriptRun::ended, &loop, &QEventLoop::quit);
    loop.exec();
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
