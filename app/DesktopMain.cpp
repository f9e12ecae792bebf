#include "app/desktop/Desktop.h"
#include "app/desktop/GuardedApplication.h"
#include "app/desktop/Pictures.h"
#include "app/desktop/SingleProcess.h"
#include "app/desktop/access/AccessDoor.h"
#include "app/editor/speaker/Speaker.h"
#include "app/options/Ending.h"
#include "app/options/Options.h"
#include "app/options/Paths.h"
#include "app/options/Screen.h"
#include "platform/base/Heap.h"

#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <csignal>

using namespace murbo;

namespace {

std::vector<std::filesystem::path> projectsToOpen(const Arguments& arguments) {
    const auto given = arguments.value("--open");
    if (!given) return {};
    return {Paths::absolute(*given)};
}

void run(const Arguments& arguments) {
    const auto projects = projectsToOpen(arguments);
    if (const auto pictures = Pictures::asked(arguments)) return Pictures::take(*pictures, projects);
    SingleProcess process;
    if (process.handOver(projects)) return;
    Desktop desktop([] { return std::make_unique<Speaker>(); });
    QObject::connect(&process, &SingleProcess::asked, &desktop, [&](const QStringList& paths) {
        for (const auto& path : paths) desktop.openPath(path);
        if (paths.isEmpty()) desktop.showStart();
    });
    QObject::connect(qobject_cast<GuardedApplication*>(QGuiApplication::instance()),
                     &GuardedApplication::failed, &desktop, &Desktop::tell);
    const AccessDoor door;
    desktop.start(projects);
    QGuiApplication::exec();
}

}

int main(int count, char** words) {
    std::signal(SIGPIPE, SIG_IGN);
    Heap::keepSmall();
    const Arguments arguments({words, words + count});
    if (!Screen::isThere()) {
        // Pictures need none; windows do, and Qt would abort.
        if (!arguments.has("--pictures"))
            return Ending::failure("There is no screen here to open a window on.");
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    GuardedApplication application(count, words);
    QGuiApplication::setApplicationDisplayName("Murbo");
    QGuiApplication::setDesktopFileName("murbo");
    Desktop::setUp();
    return Ending::of([&] { run(arguments); });
}
