// A session on a ten-hour project: what a change, an undo and opening cost, and memory over many commands.
#include "app/editor/ProjectDocument.h"
#include "app/editor/script/Script.h"
#include "bench/model/BigProject.h"
#include "core/model/edits/ProjectOperations.h"
#include "core/model/package/ProjectPackage.h"

#include <QCoreApplication>
#include <chrono>
#include <fstream>

#include <fmt/format.h>
#include <unistd.h>

namespace murbo::session {
namespace {

namespace fs = std::filesystem;

double milliseconds() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double megabytes() {
    std::ifstream file("/proc/self/statm");
    std::size_t all = 0;
    std::size_t held = 0;
    file >> all >> held;
    return static_cast<double>(held) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

void rest(Editor& editor) {
    while (editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
}

/// The median of what a step takes, each time with the session at rest before.
template <class Step>
void measure(const char* what, Editor& editor, double most, const Step& step) {
    std::vector<double> times;
    for (int at = 0; at < 90; ++at) {
        rest(editor);
        const double start = milliseconds();
        step(at);
        times.push_back(milliseconds() - start);
    }
    rest(editor);
    std::ranges::sort(times);
    fmt::print("{:<34}{:8.2f}{:8.2f} ms  under {:.0f} {}\n", what, times[times.size() / 2], times.back(),
               most, times[times.size() / 2] < most ? "ok" : "NO");
}

void changeTitle(Editor& editor, int at) {
    editor.change("Rename",
                  [&](Project& project) { project.videos.edit()[25].title = fmt::format("T{}", at); });
}

void correctLine(Editor& editor, int at) {
    editor.change("Correct Line", [&](Project& project) {
        project.transcripts.begin()->second.lines.edit()[7].text = fmt::format("words {}", at);
    });
}

void trimCut(Editor& editor, int at) {
    editor.change("Trim", [&](Project& project) {
        project.videos.edit()[0].cuts.edit()[3].end += at % 2 ? 0.2 : -0.2;
    });
}

void changes(const char* how, Editor& editor, double most) {
    fmt::print("{}\n", how);
    measure("  a title", editor, most, [&](int at) { changeTitle(editor, at); });
    measure("  undo of it", editor, most, [&](int) { editor.undo(); });
    measure("  a cut of the open video", editor, most, [&](int at) { trimCut(editor, at); });
    measure("  undo of it", editor, most, [&](int) { editor.undo(); });
    measure("  a line of one of ten recordings", editor, most, [&](int at) { correctLine(editor, at); });
    measure("  undo of it", editor, most, [&](int) { editor.undo(); });
}

void opening(const fs::path& package) {
    const double start = milliseconds();
    const auto document = ProjectDocument::open(package);
    const double opened = milliseconds();
    rest(document->editor());
    fmt::print("opening: {:.0f} ms, and {:.0f} until the player has its video (under 300 in all)\n",
               opened - start, milliseconds() - opened);
}

void memory(Editor& editor, int count) {
    double before = 0;
    for (int at = 0; at < count; ++at) {
        if (at == count / 10) before = megabytes();
        if (at % 3 == 0) changeTitle(editor, at);
        if (at % 3 == 1) trimCut(editor, at / 3);
        if (at % 3 == 2) correctLine(editor, at);
        if (at % 50 == 49) rest(editor);
    }
    rest(editor);
    fmt::print("{} commands: {:.1f} MB after a tenth of them, {:.1f} MB at the end\n", count, before,
               megabytes());
}

void run(int count, char** words) {
    const QCoreApplication application(count, words);
    const auto package = fs::temp_directory_path() / fmt::format("murbo-session-{}.mbproj", ::getpid());
    ProjectPackage::write(bigProject(), package, nullptr);
    opening(package);
    opening(package);
    {
        const auto document = ProjectDocument::open(package);
        changes("with the save", document->editor(), 20);
        document->close();
    }
    fs::remove_all(package);
    Editor editor(bigProject(), {}, std::nullopt, [](const Project&) {});
    changes("beside the save", editor, 10);
    memory(editor, 10'000);
}

}
}

int main(int count, char** words) {
    murbo::session::run(count, words);
}
