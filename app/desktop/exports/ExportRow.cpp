#include "app/desktop/exports/ExportRow.h"

namespace murbo {
namespace {

enum { idRole = Qt::UserRole, titleRole, fileRole, stateRole, wordsRole };

QString name(ExportRow::MovieState state) {
    switch (state) {
        case ExportRow::MovieState::waiting:
            return "waiting";
        case ExportRow::MovieState::running:
            return "running";
        case ExportRow::MovieState::done:
            return "done";
        case ExportRow::MovieState::stopped:
            return "stopped";
        case ExportRow::MovieState::failed:
            return "failed";
    }
    return "";
}

}

QHash<int, QByteArray> ExportRow::roles() {
    return {{idRole, "movie"},
            {titleRole, "title"},
            {fileRole, "file"},
            {stateRole, "stage"},
            {wordsRole, "words"}};
}

QVariant ExportRow::value(int role) const {
    switch (role) {
        case idRole:
            return QString::fromStdString(id);
        case titleRole:
            return title;
        case fileRole:
            return file;
        case stateRole:
            return name(state);
        case wordsRole:
            return words;
        default:
            return {};
    }
}

}
