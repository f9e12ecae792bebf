#include "app/desktop/exports/ExportRow.h"

namespace murbo {
namespace {

enum { idRole = Qt::UserRole, titleRole, fileRole, stateRole, wordsRole };

QString name(ExportRow::State state) {
    switch (state) {
        case ExportRow::State::waiting:
            return "waiting";
        case ExportRow::State::running:
            return "running";
        case ExportRow::State::done:
            return "done";
        case ExportRow::State::stopped:
            return "stopped";
        case ExportRow::State::failed:
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
