#include "app/desktop/Desktop.h"

#include "app/desktop/IconProvider.h"
#include "app/desktop/ProjectWindow.h"
#include "app/desktop/RecentProjects.h"
#include "app/desktop/access/TimelineAccess.h"
#include "app/desktop/documents/ProjectCards.h"
#include "app/desktop/documents/ProjectName.h"
#include "app/desktop/drawn/PictureView.h"
#include "app/desktop/footage/RecordingStills.h"
#include "app/desktop/libraries/BookView.h"
#include "app/desktop/services/FolderView.h"
#include "app/desktop/services/PlatformWords.h"
#include "app/desktop/timeline/TimelineView.h"
#include "app/desktop/transcript/TranscriptGutter.h"
#include "app/desktop/viewer/FrameView.h"
#include "app/desktop/viewer/FramingResult.h"
#include "app/desktop/viewer/FramingView.h"
#include "app/desktop/viewer/HandlesView.h"
#include "app/desktop/viewer/StillView.h"
#include "app/desktop/viewer/WaveStrip.h"
#include "core/intake/transcription/Whisper.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>

namespace murbo {
namespace {

constexpr const char* folderKey = "newProjectFolder";
constexpr const char* startView = "qrc:/murbo/qml/StartWindow.qml";
constexpr const char* letterShapes = "FREETYPE_PROPERTIES";
constexpr const char* noDarkening = "cff:darkening-parameters=500,0,1000,0,2500,0,4000,0";

}

void Desktop::registerTypes() {
    static const bool once = [] {
        qmlRegisterType<FramingView>("Murbo", 1, 0, "FramingView");
        qmlRegisterType<FramingResult>("Murbo", 1, 0, "FramingResult");
        qmlRegisterType<HandlesView>("Murbo", 1, 0, "HandlesView");
        qmlRegisterType<FrameView>("Murbo", 1, 0, "FrameView");
        qmlRegisterType<WaveStrip>("Murbo", 1, 0, "WaveStrip");
        qmlRegisterType<PictureView>("Murbo", 1, 0, "PictureView");
        qmlRegisterType<StillView>("Murbo", 1, 0, "StillView");
        qmlRegisterType<BookView>("Murbo", 1, 0, "BookView");
        qmlRegisterAnonymousType<FootageModel>("Murbo", 1);
        qmlRegisterAnonymousType<LibraryModel>("Murbo", 1);
        qmlRegisterType<TimelineView>("Murbo", 1, 0, "TimelineView");
        qmlRegisterType<TranscriptGutter>("Murbo", 1, 0, "TranscriptGutter");
        TimelineAccess::install();
        qmlRegisterAnonymousType<Editor>("Murbo", 1);
        qmlRegisterAnonymousType<CaptionList>("Murbo", 1);
        qmlRegisterAnonymousType<Playback>("Murbo", 1);
        qmlRegisterAnonymousType<SidebarModel>("Murbo", 1);
        qmlRegisterAnonymousType<BrowserModel>("Murbo", 1);
        qmlRegisterAnonymousType<ExportQueue>("Murbo", 1);
        qmlRegisterAnonymousType<MediaArrivals>("Murbo", 1);
        return true;
    }();
    static_cast<void>(once);
}

void Desktop::setUp() {
    // Qt has letters of OpenType faces drawn bolder, for blending that its renderer does not do: Japanese and
    // Korean stood out as if set bold. It leaves by how much to this.
    if (!qEnvironmentVariableIsSet(letterShapes)) qputenv(letterShapes, noDarkening);
    QQuickStyle::setStyle("Basic");
    // Other scripts in their own plain faces rather than in whichever the system finds first.
    QFont::insertSubstitutions("Noto Sans", {"Noto Color Emoji", "Noto Sans Thai", "Noto Sans CJK JP"});
    QFont font("Noto Sans");
    font.setPixelSize(13);
    QGuiApplication::setFont(font);
}

Desktop::Desktop(SoundPlayer::MakeOutput output) : sound(std::move(output)) {
    registerTypes();
    engine.addImageProvider("icon", new IconProvider);
    engine.addImageProvider("project", new ProjectCards);
    engine.addImageProvider("recording", new RecordingStills);
    engine.rootContext()->setContextProperty("desktop", this);
    engine.rootContext()->setContextProperty("chooser", &chooser);
}

Desktop::~Desktop() {
    opened.clear();
    starting.reset();
}

void Desktop::start(const std::vector<std::filesystem::path>& projects) {
    auto wanted = projects;
    if (wanted.empty()) {
        wanted = RecentProjects::open();
        std::erase_if(wanted, [](const auto& path) { return !std::filesystem::exists(path); });
    }
    QString fault;
    for (const auto& path : wanted)
        if (!open(path)) fault = words;
    if (opened.empty()) return showStart();
    if (!fault.isEmpty()) tell(fault); // the start window, which may have had it, is gone
}

ProjectWindow* Desktop::open(const std::filesystem::path& given) {
    const auto package = ProjectName::tidy(given);
    for (const auto& window : opened)
        if (window->project().package() == package) {
            window->raise();
            return window.get();
        }
    try {
        auto window =
            std::make_unique<ProjectWindow>(engine, *this, ProjectDocument::open(package, sound), sound);
        auto* made = window.get();
        connect(made, &ProjectWindow::closed, this, [this, made] { close(made); });
        opened.push_back(std::move(window));
        fail("");
        RecentProjects::add(package);
        emit recentChanged();
        noteOpen();
        made->window().show();
        made->window().requestActivate();
        if (starting) starting->close();
        return made;
    } catch (const std::exception& error) {
        fail(PlatformWords::shown(error.what()));
        if (opened.empty())
            showStart();
        else
            tell(words);
        return nullptr;
    }
}

void Desktop::close(ProjectWindow* window) {
    std::erase_if(opened, [&](const auto& one) { return one.get() == window; });
    noteOpen();
}

void Desktop::noteOpen() {
    std::vector<std::filesystem::path> packages;
    for (const auto& window : opened) packages.push_back(window->project().package());
    RecentProjects::setOpen(packages);
}

void Desktop::tell(const QString& said) {
    if (opened.empty()) return fail(said);
    const auto active =
        std::ranges::find_if(opened, [](const auto& one) { return one->window().isActive(); });
    const auto& told = active == opened.end() ? opened.back() : *active;
    told->project().editor().refuse(said.toStdString());
}

void Desktop::forgetRecent(const QString& path) {
    RecentProjects::remove(path.toStdString());
    emit recentChanged();
}

void Desktop::fail(const QString& given) {
    words = given;
    emit problemChanged();
}

QVariantList Desktop::recent() const {
    return RecentProjects::shown();
}

QString Desktop::version() const {
    return MURBO_VERSION;
}

QString Desktop::whisper() const {
    return PlatformWords::shown(Whisper::missing().value_or(""));
}

QString Desktop::projectFolder() const {
    const auto standard = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    return QString::fromStdString(SettingsStore::standard().text(folderKey).value_or(standard.toStdString()));
}

bool Desktop::openPath(const QString& path) {
    return open(path.toStdString()) != nullptr;
}

QString Desktop::freeName(const QString& folder) const {
    return QString::fromStdString(ProjectName::free(folder.toStdString()));
}

bool Desktop::create(const QString& name, const QString& folder, const QStringList& footage) try {
    const auto clean = name.trimmed().toStdString();
    if (const auto fault = ProjectName::fault(clean); !fault.empty()) throw Problem(fault);
    const auto package = ProjectName::package(clean, folder.toStdString());
    ProjectPackage::create(package);
    SettingsStore::standard().set(folderKey, folder.toStdString());
    auto* window = open(package);
    if (window) window->takeFootage(footage);
    return window != nullptr;
} catch (const std::exception& error) {
    fail(QString::fromStdString(error.what()));
    return false;
}

void Desktop::showStart() {
    if (!starting) {
        QQmlComponent component(&engine, QUrl(startView));
        auto* made = component.create();
        starting.reset(qobject_cast<QQuickWindow*>(made));
        if (!starting)
            throw Problem("The window could not be made. " + component.errorString().toStdString());
    }
    starting->show();
    starting->requestActivate();
}

void Desktop::closeWindow(QObject* window) {
    if (auto* view = qobject_cast<QQuickWindow*>(window)) view->close();
}

QString Desktop::pathOf(const QUrl& url) const {
    return url.isLocalFile() ? url.toLocalFile() : "";
}

void Desktop::showInFolder(const QString& file) const {
    FolderView::show(file);
}

}
