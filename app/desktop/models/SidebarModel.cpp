#include "app/desktop/models/SidebarModel.h"

#include "app/editor/Editor.h"
#include "platform/base/RawText.h"

#include <algorithm>

namespace murbo {
namespace {

enum SidebarRole {
    idRole = Qt::UserRole,
    sectionRole,
    titleRole,
    iconRole,
    countRole,
    missingRole,
    pickedRole
};

struct Listed {
    Collection collection;
    const char* title;
    const char* icon;
};
constexpr Listed collections[] = {
    {Collection::videos, "Videos", "film"},           {Collection::sources, "Sources", "hard-drive"},
    {Collection::clips, "Clips", "rows-3"},           {Collection::favourites, "Favourites", "star"},
    {Collection::bookmarks, "Bookmarks", "bookmark"}, {Collection::missing, "Missing", "file-question"},
};

bool isFavourite(const Clip& clip) {
    return clip.rating == 1;
}

constexpr Listed libraries[] = {
    {Collection::layouts, "Layouts", "columns-2"}, {Collection::generators, "Generators", "image"},
    {Collection::playbooks, "Playbooks", "type"},  {Collection::sounds, "Sounds", "audio-lines"},
    {Collection::music, "Music", "music"},
};

int count(const Editor& editor, Collection collection) {
    const auto& project = editor.project();
    switch (collection) {
        case Collection::videos:
            return static_cast<int>(project.videos.size());
        case Collection::sources:
            return static_cast<int>(project.sources.size());
        case Collection::clips:
            return static_cast<int>(project.clips.size());
        case Collection::favourites:
            return static_cast<int>(std::ranges::count_if(project.clips, isFavourite));
        case Collection::bookmarks:
            return static_cast<int>(project.bookmarks.size());
        case Collection::missing:
            return static_cast<int>(editor.missing().size());
        default:
            return 0;
    }
}

int clipsOf(const Project& project, const UUID& source) {
    return static_cast<int>(
        std::ranges::count_if(project.clips, [&](const Clip& clip) { return clip.source == source; }));
}

SidebarRow rowOf(const Editor& editor, const Source& source, const QString& section) {
    SidebarRow row;
    row.id = "source:" + source.id.text();
    row.section = section;
    row.title = QString::fromStdString(source.name());
    row.icon = source.kind == Source::Kind::stream ? "tv" : "video";
    row.count = clipsOf(editor.project(), source.id);
    row.missing = editor.missing().contains(source.id);
    row.pick = {Collection::sources, source.id};
    row.picked = editor.sidebar() == row.pick;
    return row;
}

void addSources(std::vector<SidebarRow>& rows, const Editor& editor) {
    for (const auto& group : editor.project().groups)
        for (const auto& source : editor.project().sources)
            if (source.group == group.id)
                rows.push_back(rowOf(editor, source, QString::fromStdString(group.name)));
}

void addCollections(std::vector<SidebarRow>& rows, const Editor& editor) {
    for (const auto& listed : collections) {
        SidebarRow row;
        row.id = rawText(listed.collection);
        row.section = "Project";
        row.title = listed.title;
        row.icon = listed.icon;
        row.count = count(editor, listed.collection);
        row.pick = {listed.collection, {}};
        row.picked = editor.sidebar() == row.pick;
        row.missing = listed.collection == Collection::missing && row.count > 0;
        if (listed.collection != Collection::missing || row.count > 0 || row.picked)
            rows.push_back(std::move(row));
    }
}

/// What they hold lies in folders, which are read when a page is opened.
void addLibrary(std::vector<SidebarRow>& rows, const Editor& editor) {
    for (const auto& listed : libraries) {
        SidebarRow row;
        row.id = rawText(listed.collection);
        row.section = "Library";
        row.title = listed.title;
        row.icon = listed.icon;
        row.count = -1;
        row.pick = {listed.collection, {}};
        row.picked = editor.sidebar() == row.pick;
        rows.push_back(std::move(row));
    }
}

}

QHash<int, QByteArray> SidebarRow::roles() {
    return {{idRole, "rowId"},    {sectionRole, "section"}, {titleRole, "title"},  {iconRole, "icon"},
            {countRole, "count"}, {missingRole, "missing"}, {pickedRole, "picked"}};
}

QVariant SidebarRow::value(int role) const {
    switch (role) {
        case idRole:
            return QString::fromStdString(id);
        case sectionRole:
            return section;
        case titleRole:
            return title;
        case iconRole:
            return icon;
        case countRole:
            return count;
        case missingRole:
            return missing;
        case pickedRole:
            return picked;
        default:
            return {};
    }
}

SidebarModel::SidebarModel(Editor& session, QObject* parent) : Rows(parent), editor(session) {
    connect(&editor, &Editor::projectChanged, this, &SidebarModel::refresh);
    connect(&editor, &Editor::sidebarChanged, this, &SidebarModel::refresh);
    connect(&editor, &Editor::missingChanged, this, &SidebarModel::refresh);
    refresh();
}

void SidebarModel::refresh() {
    const int before = pickedRow();
    std::vector<SidebarRow> rows;
    addSources(rows, editor);
    addCollections(rows, editor);
    addLibrary(rows, editor);
    assign(std::move(rows));
    if (pickedRow() != before) emit pickedRowChanged();
}

int SidebarModel::pickedRow() const {
    const auto found = std::ranges::find(rows(), true, &SidebarRow::picked);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

void SidebarModel::pick(int row) {
    if (row >= 0 && row < static_cast<int>(rows().size())) editor.setSidebar(rows()[row].pick);
}

}
