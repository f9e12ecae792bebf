#include "app/desktop/documents/CopySheet.h"

#include "app/desktop/documents/ProjectName.h"
#include "app/editor/Editor.h"
#include "core/model/package/PackageCopy.h"
#include "platform/base/Problem.h"

namespace murbo {
namespace {

namespace fs = std::filesystem;

/// "Tuesday copy", or with a number where that is taken.
std::string freeName(const fs::path& package) {
    const auto first = package.stem().string() + " copy";
    auto name = first;
    std::error_code error;
    for (int number = 2; fs::exists(ProjectName::package(name, package.parent_path()), error); ++number)
        name = first + " " + std::to_string(number);
    return name;
}

}

CopySheet::CopySheet(Editor& session, QObject* parent) : QObject(parent), editor(session) {}

CopySheet::~CopySheet() {
    stop();
    background.finish();
}

void CopySheet::fill() {
    if (!editor.package()) return;
    name = QString::fromStdString(freeName(*editor.package()));
    folder = QString::fromStdString(editor.package()->parent_path().string());
    words.clear();
    emit changed();
}

void CopySheet::start(bool instead) {
    if (copying || !editor.package()) return;
    words = QString::fromStdString(ProjectName::fault(name.toStdString()));
    if (!words.isEmpty()) return emit changed();
    const auto to = ProjectName::package(name.trimmed().toStdString(), folder.toStdString());
    copying = true;
    stopping = {};
    emit changed();
    editor.closeDrag();
    editor.writeHistory();
    auto problem = std::make_shared<QString>();
    const auto work = [from = *editor.package(), to, project = editor.project(), problem,
                       token = stopping.get_token()] {
        try {
            PackageCopy::make(from, to, project, token);
        } catch (const std::exception& error) {
            *problem = QString::fromStdString(error.what());
        }
    };
    background.start(
        work, [this, to, instead, problem] { end(QString::fromStdString(to.string()), instead, *problem); });
}

void CopySheet::end(const QString& path, bool instead, const QString& problem) {
    copying = false;
    words = problem;
    emit changed();
    if (words.isEmpty()) emit made(path, instead);
}

}
