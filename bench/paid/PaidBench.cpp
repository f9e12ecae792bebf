// How long the main thread of a session on ten hours of footage is held up by a task for a model: from the
// press of the button to the step that comes of it. The model answers at once.
#include "app/editor/ProjectDocument.h"
#include "app/editor/commands/FootageAICommands.h"
#include "app/editor/commands/VideoAICommands.h"
#include "bench/model/BigProject.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/Environment.h"
#include "tests/ScriptedModel.h"
#include "tests/TemporaryFolder.h"

#include <QCoreApplication>
#include <ctime>

#include <fmt/format.h>

namespace murbo {
namespace {

using json = nlohmann::json;
/// What this thread has worked, in milliseconds: others on the machine don't count.
double worked() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Notes how long each event held the main thread up.
class TimedApplication : public QCoreApplication {
public:
    using QCoreApplication::QCoreApplication;
    bool notify(QObject* object, QEvent* event) override {
        const double start = worked();
        ++depth;
        const bool handled = QCoreApplication::notify(object, event);
        if (--depth == 0) longest = std::max(longest, worked() - start);
        return handled;
    }

    double longest = 0;
    int depth = 0;
};

void measure(const char* what, TimedApplication& application, Editor& editor,
             const std::function<void()>& start) {
    while (editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    application.longest = 0;
    const double began = worked();
    start();
    const double pressing = worked() - began;
    while (editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    fmt::print("{:<28}{:8.2f} ms to start{:8.2f} ms at most after it{:10.1f} ms in all\n", what, pressing,
               application.longest, worked() - began);
}

void run(TimedApplication& application) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder / "config");
    const Environment state("XDG_STATE_HOME", folder / "state");
    const Environment home("HOME", folder.path);
    ScriptedModel model;
    const Environment key("OPENROUTER_API_KEY", "sk-or-v1-of-the-bench");
    const Environment address("MURBO_OPENROUTER", model.base());
    ProjectPackage::write(bigProject(), folder / "p.mbproj", nullptr);
    const auto document = ProjectDocument::open(folder / "p.mbproj");
    auto& editor = document->editor();
    for (int time = 0; time < 3; ++time) {
        model.answers(json{{"read", {"C01", "C02", "C03"}}});
        model.answers(json{{"cuts", {{{"from", "C01.01"}, {"to", "C01.03"}}}}});
        measure("Cut to Instruction", application, editor,
                [&] { VideoAICommands::cutToInstruction(editor, {.instruction = "the best fall"}); });
        model.answers(json{{"clips", {{{"clip", "C01"}, {"title", "T"}, {"summary", "S"}}}}});
        measure("Describe Clips", application, editor, [&] {
            FootageAICommands::describeClips(editor,
                                             {editor.project().clips[0].id, editor.project().clips[1].id});
        });
        model.answers(json{{"big", {"C01.01"}}});
        measure("Look", application, editor,
                [&] { VideoAICommands::lookByAI(editor, editor.project().videos.back().id); });
    }
    // What every change of such a project costs, whoever makes it.
    for (int time = 0; time < 3; ++time)
        measure("A title by hand", application, editor, [&] {
            editor.change("Rename", [&](Project& project) {
                project.videos.edit()[25].title = fmt::format("T{}", time);
            });
        });
    document->close();
}

}
}

int main(int count, char** words) {
    murbo::TimedApplication application(count, words);
    murbo::run(application);
}
