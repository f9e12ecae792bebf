#include "app/desktop/Pictures.h"

#include "app/desktop/Desktop.h"
#include "app/desktop/ProjectWindow.h"
#include "app/desktop/viewer/FrameView.h"
#include "app/editor/commands/TimelinePicks.h"
#include "platform/base/Problem.h"
#include "platform/base/RawText.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStyleHints>
#include <algorithm>

namespace murbo::Pictures {
namespace {

constexpr int maxWaiting = 60000; ///< ms for a view to come to rest
constexpr int still = 700;        ///< ms in which nothing more comes
constexpr double step = 0.1;      ///< seconds of the video
constexpr double inSight = 0.3;   ///< seconds after which something has come in
constexpr int imageLoading = 2;   ///< as the status of an Image counts

/// Has something in the sheets for footage: that of the project.
void handOver(const std::string& view, ProjectWindow& window) {
    QStringList paths;
    for (const auto& source : window.project().editor().project().sources)
        paths.append(QString::fromStdString(source.path));
    if (view == "addFiles") window.takeFootage(paths);
    if (view == "addStream") window.takeFootage(paths.mid(0, 1));
}

/// Whether a picture in the item or in one that lies in it is yet to come.
bool awaits(const QQuickItem& item) {
    if (!item.isVisible()) return false;
    if (const auto* frame = qobject_cast<const FrameView*>(&item); frame && frame->isWaiting()) return true;
    if (item.inherits("QQuickImage") && item.property("status").toInt() == imageLoading) return true;
    return std::ranges::any_of(item.childItems(), [](const auto* child) { return awaits(*child); });
}

/// Lets the window draw until nothing is awaited, and nothing has changed for a while.
void settle(QQuickWindow& window, ProjectWindow* opened) {
    QElapsedTimer since;
    QElapsedTimer whole;
    since.start();
    whole.start();
    const auto link = QObject::connect(&window, &QQuickWindow::frameSwapped, [&] { since.restart(); });
    while (whole.elapsed() < maxWaiting && since.elapsed() < still) {
        if ((opened && opened->awaitsPictures()) || awaits(*window.contentItem())) since.restart();
        QGuiApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    QObject::disconnect(link);
}

/// Brings what is picked into the video's picture: the playhead goes a little past where it begins.
void goToPicked(Editor& editor) {
    if (!editor.picked() || !editor.video()) return;
    const auto there = [&](double time) {
        const auto caught = TimelinePicks::caught(
            editor, time, time + step,
            {TimelineRow::shots, TimelineRow::layers, TimelineRow::captions, TimelineRow::overlays});
        return std::ranges::find(caught, *editor.picked()) != caught.end();
    };
    for (double time = 0; time < editor.video()->length(); time += step)
        if (there(time)) return editor.playback.seek(time + inSight);
}

void pickFirst(Editor& editor, Pick::Kind kind) {
    const auto* video = editor.video();
    if (!video) return;
    const auto all = TimelinePicks::caught(editor, 0, video->length(),
                                           {TimelineRow::shots, TimelineRow::picture, TimelineRow::captions,
                                            TimelineRow::overlays, TimelineRow::sounds, TimelineRow::music});
    for (const auto& pick : all)
        if (pick.kind == kind) return editor.setPicked(pick);
}

void pickGenerated(Editor& editor) {
    if (!editor.video()) return;
    for (const auto& cut : editor.video()->cuts)
        if (cut.generator) return editor.setPicked(Pick{Pick::Kind::cut, cut.id, {}});
}

void bringUp(const std::string& view, OpenProject& project) {
    auto& editor = project.editor();
    if (!editor.project().clips.empty()) editor.holdClip(editor.project().clips.front().id);
    if (view == "source" || view == "transcript" || view == "framing") {
        editor.setFocus(Viewer::source);
        editor.setInspecting(Inspecting::browser);
    }
    editor.setFraming(view == "framing");
    if (view == "picture") pickFirst(editor, Pick::Kind::cut);
    if (view == "shot") pickFirst(editor, Pick::Kind::shot);
    if (view == "overlay") pickFirst(editor, Pick::Kind::overlay);
    if (view == "sound") pickFirst(editor, Pick::Kind::sound);
    if (view == "song") pickFirst(editor, Pick::Kind::music);
    if (view == "caption" || view == "captions") pickFirst(editor, Pick::Kind::caption);
    if (view == "generated") pickGenerated(editor);
    if (view == "footage" && !editor.project().sources.empty()) {
        editor.holdSource(editor.project().sources.front().id);
        editor.setInspecting(Inspecting::browser);
    }
    if (view == "several")
        TimelinePicks::set(
            editor, TimelinePicks::caught(editor, 0, 10, {TimelineRow::overlays, TimelineRow::sounds}));
    goToPicked(editor);
    if (view == "captions") editor.setPicked(std::nullopt);
    if (view == "captions") editor.setInspectorTab(InspectorTab::captions);
    if (view == "transcript") editor.setInspectorTab(InspectorTab::transcript);
    for (const auto* sheet :
         {"export", "newVideo", "addFiles", "addStream", "history", "saveAs", "duplicate", "settings", "keys",
          "captionFonts", "palette", "bringIn", "renamePreset", "renameClip", "renameVideo", "findMissing"})
        if (view == sheet) project.setSheet(QString::fromUtf8(sheet));
    if (const auto page = fromRawText<Collection>(view)) editor.setSidebar({*page, {}});
}

}

std::optional<WindowPicture> asked(const Arguments& arguments) {
    const auto folder = arguments.value("--pictures");
    if (!folder) return {};
    WindowPicture order;
    order.folder = *folder;
    if (const auto view = arguments.value("--show")) order.view = *view;
    if (const auto size = arguments.value("--size")) {
        const auto parts = QString::fromStdString(*size).split(',');
        const int width = parts.size() == 2 ? parts[0].toInt() : 0;
        const int height = parts.size() == 2 ? parts[1].toInt() : 0;
        if (width < 200 || height < 200 || width > 8192 || height > 8192)
            throw Problem("--size is <width>,<height>, each from 200 to 8192.");
        order.size = {width, height};
    }
    return order;
}

void take(const WindowPicture& order, const std::vector<std::filesystem::path>& projects) {
    std::filesystem::create_directories(order.folder);
    QCursor::setPos(-100, -100); // or whatever stands in the corner shows what a pointer there has it show
    QGuiApplication::styleHints()->setCursorFlashTime(0); // a field would never come to rest
    Desktop desktop({});
    QQuickWindow* window = nullptr;
    ProjectWindow* opened = nullptr;
    OpenProject* project = nullptr;
    if (projects.empty()) {
        desktop.showStart();
        window = desktop.startWindow();
    } else {
        opened = desktop.open(projects.front());
        if (!opened) throw Problem(desktop.problem().toStdString());
        project = &opened->project();
        window = &opened->window();
    }
    window->resize(order.size);
    settle(*window, opened);
    if (project) {
        bringUp(order.view, *project);
        handOver(order.view, *opened);
        settle(*window, opened);
    }
    const auto name = QString("%1-%2x%3.png")
                          .arg(QString::fromStdString(order.view))
                          .arg(order.size.width())
                          .arg(order.size.height());
    const auto file = order.folder / name.toStdString();
    if (!window->grabWindow().save(QString::fromStdString(file.string())))
        throw Problem("“" + file.string() + "” could not be written.");
}

}
