#include "app/desktop/ProjectWindow.h"

#include "app/desktop/KeyRouter.h"
#include "app/desktop/exports/ExportWatch.h"
#include "app/desktop/footage/DroppedFiles.h"
#include "app/desktop/libraries/LibraryRows.h"
#include "app/editor/playback/PreviewVolume.h"
#include "platform/base/Problem.h"

#include <QCloseEvent>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>

namespace murbo {
namespace {

std::vector<std::filesystem::path> libraryFolders() {
    return {LibraryRows::folder(Collection::playbooks), LibraryRows::folder(Collection::sounds),
            LibraryRows::folder(Collection::music)};
}

}

ProjectWindow::ProjectWindow(QQmlEngine& engine, QObject& desktop, std::unique_ptr<ProjectDocument> document,
                             const SoundPlayer::MakeOutput& sound)
    : open(std::move(document)),
      arrivals(open.editor()),
      exportSheet(open.editor(), *open.exports()),
      inspectorPanel(open.editor()),
      historySheet(open.editor()),
      copySheet(open.editor()),
      footageSheet(open.editor()),
      streamSheet(open.editor()),
      library(open.editor(), arrivals, sound),
      closing(open),
      transcript(open.editor()),
      captions(open.editor()),
      captionTimes(open.editor(), *captions.list()),
      inspection(open.editor()),
      inspectorPictures(open.editor()),
      heldFootage(open.editor()),
      viewerAids(open.editor().playback),
      deliveryCheck(open.editor(), viewerAids.areas()),
      context(std::make_unique<QQmlContext>(&engine)) {
    context->setContextProperty("desktop", &desktop);
    context->setContextProperty("project", &open);
    context->setContextProperty("exportSheet", &exportSheet);
    context->setContextProperty("mediaArrivals", &arrivals);
    context->setContextProperty("deliveryCheck", &deliveryCheck);
    context->setContextProperty("inspection", &inspection);
    context->setContextProperty("inspectorPictures", &inspectorPictures);
    context->setContextProperty("inspectorPanel", &inspectorPanel);
    context->setContextProperty("historySheet", &historySheet);
    context->setContextProperty("copySheet", &copySheet);
    context->setContextProperty("footageSheet", &footageSheet);
    context->setContextProperty("streamSheet", &streamSheet);
    context->setContextProperty("settingsSheet", &settingsSheet);
    context->setContextProperty("captionFonts", &captionFonts);
    context->setContextProperty("library", &library);
    context->setContextProperty("closingQuestion", &closing);
    context->setContextProperty("transcript", &transcript);
    context->setContextProperty("captions", &captions);
    context->setContextProperty("captionTimes", &captionTimes);
    context->setContextProperty("folders", &folders);
    context->setContextProperty("heldFootage", &heldFootage);
    context->setContextProperty("timelineAppearance", &timelineAppearance);
    context->setContextProperty("splitters", &splitters);
    context->setContextProperty("eyedropper", &eyedropper);
    context->setContextProperty("viewerAids", &viewerAids);
    context->setContextProperty("previewVolume", &PreviewVolume::standard());
    context->setContextProperty("planner", this);
    connect(&captionFonts, &CaptionFonts::changed, this, [this] { open.editor().redraw(); });
    connect(&settingsSheet, &SettingsSheet::changed, &library, [this, before = libraryFolders()]() mutable {
        if (auto now = libraryFolders(); std::exchange(before, now) == now) return;
        library.assign({}); // it lies elsewhere
        library.reload();
    });
    connect(&inspection, &Inspection::findAsked, &open, [this] { open.perform("sheet.findMissing"); });
    connect(&open, &OpenProject::verb, &inspectorPanel, &InspectorPanel::carryOut);
    connect(&open, &OpenProject::verb, &transcript, &TranscriptPage::carryOut);
    connect(&open, &OpenProject::verb, &captions, [this](const QString& name) {
        if (name == "preset.remove") captions.removePreset();
    });
    connect(&open, &OpenProject::aboutToAct, &transcript, &TranscriptPage::commit);
    connect(&transcript, &TranscriptPage::tabWanted, &inspectorPanel,
            [this] { inspectorPanel.carryOut("tab.transcript"); });
    context->setContextProperty("announcer", &announcer);
    QQmlComponent component(&engine, QUrl("qrc:/murbo/qml/ProjectWindow.qml"));
    auto* made = component.create(context.get());
    view.reset(qobject_cast<QQuickWindow*>(made));
    if (!view) throw Problem("The window could not be made. " + component.errorString().toStdString());
    view->installEventFilter(this);
    new KeyRouter(*view, open);
    new ExportWatch(*open.exports(), *view, view.get());
    connect(&closing, &ClosingQuestion::agreed, view.get(), &QWindow::close);
}

ProjectWindow::~ProjectWindow() {
    view.reset(); // the views go before what they look at
    arrivals.finish();
    open.close();
}

void ProjectWindow::raise() {
    view->show();
    view->raise();
    view->requestActivate();
}

bool ProjectWindow::awaitsPictures() {
    const auto& editor = open.editor();
    auto* pictures = qobject_cast<FootagePictures*>(open.footage());
    return editor.isBusy() || pictures->isBusy() || inspectorPictures.isBusy() || captions.isBusy() ||
           captionFonts.isBusy() || library.isBusy() || deliveryCheck.isBusy() || footageSheet.reading();
}

bool ProjectWindow::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Close) {
        if (!closing.mayClose()) {
            event->ignore();
            return true;
        }
        // After the event: the window can't be destroyed within it.
        QMetaObject::invokeMethod(this, &ProjectWindow::closed, Qt::QueuedConnection);
    }
    return false;
}

void ProjectWindow::takeFootage(const QStringList& given) {
    auto paths = given;
    // With a sheet open all is for that sheet: it says of what it can't take why.
    if (open.sheet() != "addFiles" && open.sheet() != "addStream") {
        const auto files = DroppedFiles::sorted(given);
        std::vector<ArrivingFile> arriving;
        for (const auto& file : files.pictures) arriving.push_back({.file = file.toStdString()});
        for (const auto& file : files.sounds)
            arriving.push_back({.file = file.toStdString(), .kind = ArrivingFile::ArrivalKind::sound});
        arrivals.take(std::move(arriving));
        if (!files.playbooks.isEmpty()) library.bringIn(files.playbooks);
        paths = files.footage;
    }
    if (paths.isEmpty()) return;
    const bool stream =
        open.sheet() == "addStream" || (open.sheet() != "addFiles" && StreamSheet::isStream(paths));
    if (stream)
        streamSheet.take(paths);
    else
        footageSheet.take(paths);
    open.setSheet(stream ? "addStream" : "addFiles");
}

QVariantMap ProjectWindow::plan(double width, double height, bool upright, bool wantsTall,
                                bool inspector) const {
    const auto given = [&](const char* region) { return splitters.size(region, width); };
    const auto plan =
        WindowPlan::of({width, height, upright, wantsTall, inspector, given("timeline"), given("sidebar"),
                        given("browser"), given("source"), given("tall"), given("inspector")});
    return {{"compact", plan.compact}, {"tabs", plan.tabs},         {"tall", plan.tall},
            {"sidebar", plan.sidebar}, {"browser", plan.browser},   {"source", plan.source},
            {"video", plan.video},     {"timeline", plan.timeline}, {"inspector", plan.inspector}};
}

}
