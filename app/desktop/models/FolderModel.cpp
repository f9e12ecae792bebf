#include "app/desktop/models/FolderModel.h"

#include "app/desktop/services/MediaEndings.h"
#include "core/intake/Intake.h"

#include <QCollator>
#include <QDir>
#include <QLocale>
#include <algorithm>

namespace murbo {
namespace {

enum FolderRole { nameRole = Qt::UserRole, detailRole, folderRole, projectRole, pathRole };

constexpr int maxEntries = 20000;

bool isWanted(const QFileInfo& entry, const QString& wanted) {
    if (entry.isDir()) return true;
    if (wanted == "sounds") return MediaEndings::isSound(entry.fileName());
    if (wanted == "media" && MediaEndings::isPicture(entry.fileName())) return true;
    if (wanted == "markers") return MediaEndings::isMarkers(entry.fileName());
    if (wanted != "movies" && wanted != "media") return false;
    return Intake::isMovie(entry.fileName().toStdString());
}

}

QHash<int, QByteArray> FolderRow::roles() {
    return {{nameRole, "name"},
            {detailRole, "detail"},
            {folderRole, "folder"},
            {projectRole, "project"},
            {pathRole, "path"}};
}

QVariant FolderRow::value(int role) const {
    switch (role) {
        case nameRole:
            return name;
        case detailRole:
            return detail;
        case folderRole:
            return folder;
        case projectRole:
            return project;
        case pathRole:
            return QString::fromStdString(id);
        default:
            return {};
    }
}

FolderModel::FolderModel(QObject* parent) : Rows(parent) {
    connect(this, &FolderModel::wantedChanged, this, &FolderModel::list);
}

void FolderModel::setFolder(const QString& given) {
    const auto clean = QDir::cleanPath(given.isEmpty() ? QDir::homePath() : given);
    if (clean == path) return;
    path = clean;
    list();
}

void FolderModel::list() {
    words.clear();
    std::vector<FolderRow> rows;
    const QDir dir(path);
    if (!dir.exists() || !dir.isReadable()) {
        words = "This folder can't be read";
    } else {
        auto entries = dir.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::NoSort);
        QCollator collator(QLocale(QLocale::English)); // that of "C" knows no numbers
        collator.setNumericMode(true);
        std::ranges::sort(entries, [&](const QFileInfo& a, const QFileInfo& b) {
            if (a.isDir() != b.isDir()) return a.isDir();
            return collator.compare(a.fileName(), b.fileName()) < 0;
        });
        for (const auto& entry : entries) {
            if (!isWanted(entry, wanted) || static_cast<int>(rows.size()) >= maxEntries) continue;
            FolderRow row;
            row.id = entry.absoluteFilePath().toStdString();
            row.name = entry.fileName();
            row.project = entry.isDir() && entry.suffix() == "mbproj";
            row.folder = entry.isDir() && !row.project;
            if (!entry.isDir()) row.detail = QLocale().formattedDataSize(entry.size());
            rows.push_back(std::move(row));
        }
    }
    assign(std::move(rows));
    emit folderChanged();
}

void FolderModel::up() {
    setFolder(QFileInfo(path).absolutePath());
}

QString FolderModel::pathOf(int row) const {
    return row < 0 || row >= rowCount() ? QString() : QString::fromStdString(rows()[row].id);
}

bool FolderModel::isFolder(int row) const {
    return row >= 0 && row < rowCount() && rows()[row].folder;
}

}
