#include "app/desktop/libraries/LibraryRows.h"

#include "app/editor/Timecode.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/sound/SoundMix.h"
#include "platform/base/Text.h"

namespace murbo::LibraryRows {
namespace {

QString text(const std::string& given) {
    return QString::fromStdString(Text::repaired(given));
}

LibraryRow rowOf(const Book& book) {
    LibraryRow row;
    row.id = book.id() + (book.folder ? " of yours" : "");
    row.group = book.folder ? "Yours" : "Built in";
    row.name = text(book.playbook.name);
    row.about = text(book.playbook.about.value_or(""));
    if (book.playbook.kind != "layout")
        row.length = QString::fromStdString(Timecode::fine(book.playbook.naturalLength()));
    row.book = std::make_shared<const Book>(book);
    if (book.folder) row.file = *book.folder;
    return row;
}

std::vector<LibraryRow> books(Collection collection) {
    std::vector<LibraryRow> rows;
    for (const auto& book : Playbooks::library())
        if (pageOf(book) == collection) rows.push_back(rowOf(book));
    for (const auto& [path, reason] : Playbooks::leftOut()) {
        LibraryRow row;
        row.id = "left out " + path.string();
        row.kind = LibraryRow::Kind::leftOut;
        row.group = "Left out";
        row.name = text(path.filename().string());
        row.about = text(reason);
        row.file = path;
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<LibraryRow> sounds(const std::filesystem::path& from) {
    std::vector<LibraryRow> rows;
    for (const auto& [folder, file] : Library::audioFiles(from)) {
        LibraryRow row;
        row.id = file.string();
        row.kind = LibraryRow::Kind::sound;
        row.group = folder.empty() ? text(from.filename().string()) : text(folder);
        row.name = text(file.stem().string());
        row.file = file;
        row.folder = folder;
        rows.push_back(std::move(row));
    }
    return rows;
}

}

Collection pageOf(const Book& book) {
    const auto kind = book.playbook.kind.value_or("");
    if (kind == "layout") return Collection::layouts;
    return kind == "generator" ? Collection::generators : Collection::playbooks;
}

bool isLibrary(Collection collection) {
    switch (collection) {
        case Collection::layouts:
        case Collection::generators:
        case Collection::playbooks:
        case Collection::sounds:
        case Collection::music:
            return true;
        default:
            return false;
    }
}

std::vector<LibraryRow> of(Collection collection) {
    if (!isLibrary(collection)) return {};
    const bool audio = collection == Collection::sounds || collection == Collection::music;
    return audio ? sounds(folder(collection)) : books(collection);
}

void measure(std::vector<LibraryRow>& rows, const std::stop_token& stop) {
    for (auto& row : rows) {
        if (stop.stop_requested()) return;
        if (row.kind != LibraryRow::Kind::sound) continue;
        const auto length = SoundMix::lengthOf(row.file);
        if (length)
            row.length = QString::fromStdString(Timecode::fine(*length));
        else
            row.about = "can't be read";
    }
}

std::filesystem::path folder(Collection collection) {
    if (collection == Collection::sounds) return Library::sounds();
    return collection == Collection::music ? Library::music() : Library::playbooks();
}

}
