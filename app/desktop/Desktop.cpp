#include "app/desktop/Desktop.h"

#include "app/desktop/IconProvider.h"
#include "app/desktop/ProjectWindow.h"
#include "app/desktop/RecentProjects.h"
#include "app/desktop/timeline/TimelineView.h"
#include "app/desktop/viewer/FrameView.h"
#include "app/desktop/viewer/StillView.h"
#include "app/desktop/viewer/WaveStrip.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <QDesktopServices>
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

}

void Desktop::registerTypes() {
    static const bool once = [] {
        qmlRegisterType<FrameView>("Murbo", 1, 0, "FrameView");
        qmlRegisterType<WaveStrip>("Murbo", 1, 0, "WaveStrip");
        qmlRegisterType<StillView>("Murbo", 1, 0, "StillView");
        qmlRegisterType<TimelineView>("Murbo", 1, 0, "TimelineView");
        qmlRegisterAnonymousType<Editor>("Murbo", 1);
        qmlRegisterAnonymousType<Playback>("Murbo", 1);
        qmlRegisterAnonymousType<SidebarModel>("Murbo", 1);
        qmlRegisterAnonymousType<BrowserModel>("Murbo", 1);
        qmlRegisterAnonymousType<ExportQueue>("Murbo", 1);
        return true;
    }();
    static_cast<void>(once);
}

void Desktop::setUp() {
    QQuickStyle::setStyle("Basic");
    QFont font("Noto Sans");
    font.setPixelSize(13);
    QGuiApplication::setFont(font);
}

Desktop::Desktop(SoundPlayer::MakeOutput output) : sound(std::move(output)) {
    registerTypes();
    engine.addImageProvider("icon", new IconProvider);
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
    for (const auto& path : wanted) open(path);
    if (opened.empty()) showStart();
}

ProjectWindow* Desktop::open(const std::filesystem::path& given) {
    const auto package = given.lexically_normal();
    for (const auto& window : opened)
        if (window->project().package() == package) {
            window->raise();
            return window.get();
        }
    try {
        auto window = std::make_unique<ProjectWindow>(engine, *this, ProjectDocument::open(package, sound));
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
        fail(QString::fromStdString(error.what()));
        if (opened.empty()) showStart();
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

QString Desktop::projectFolder() const {
    const auto standard = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    return QString::fromStdString(SettingsStore::standard().text(folderKey).value_or(standard.toStdString()));
}

bool Desktop::openPath(const QString& path) {
    return open(path.toStdString()) != nullptr;
}

bool Desktop::create(const QString& name, const QString& folder) try {
    const auto clean = name.trimmed();
    if (clean.isEmpty()) throw Problem("Give the project a name.");
    if (clean.contains('/') || clean.startsWith('.'))
        throw Problem("A project's name holds no slash and begins with no point.");
    const auto package = std::filesystem::path(folder.toStdString()) / (clean + ".mbproj").toStdString();
    ProjectPackage::create(package);
    SettingsStore::standard().set(folderKey, folder.toStdString());
    return openPath(QString::fromStdString(package.string()));
} catch (const std::exception& error) {
    fail(QString::fromStdString(error.what()));
    return false;
}

void Desktop::showStart() {
    if (!starting) {
        engine.rootContext()->setContextProperty("desktop", this);
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
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).absolutePath()));
}

}
