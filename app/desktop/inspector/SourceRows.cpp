#include "app/desktop/inspector/SourceRows.h"

#include "app/desktop/inspector/RowMaker.h"
#include "app/editor/Timecode.h"
#include "core/model/Project.h"

#include <algorithm>
#include <filesystem>

namespace murbo::SourceRows {
namespace {

InspectorRow group(const Source& source, const Project& project) {
    QStringList options;
    qsizetype chosen = -1;
    for (const auto& one : project.groups) {
        if (one.id == source.group) chosen = options.size();
        options.append(RowMaker::said(one.name));
    }
    return RowMaker::choice("group", "Group", options, chosen, false);
}

QString clipsOf(const Source& source, const Project& project) {
    const auto count =
        std::ranges::count_if(project.clips, [&](const Clip& clip) { return clip.source == source.id; });
    return QString("%1 %2").arg(count).arg(count == 1 ? "clip" : "clips");
}

}

InspectorRowList of(const Source& source, const Project& project, const QString& facts, bool missing) {
    InspectorRowList rows;
    const std::filesystem::path path = source.path;
    rows.push_back(RowMaker::words("file", "File", RowMaker::said(source.name())));
    rows.push_back(RowMaker::words("folder", "Folder", RowMaker::said(path.parent_path().string())));
    if (missing) {
        rows.push_back(RowMaker::words("missing", "", "The file was not found"));
        rows.push_back(RowMaker::button("find", "Find…"));
    }
    rows.push_back(
        RowMaker::words("length", "Length",
                        RowMaker::said(Timecode::fine(source.length)) + " · " + clipsOf(source, project)));
    if (!missing) rows.push_back(RowMaker::words("facts", "Facts", facts));
    if (source.stream) {
        const auto& file = source.stream->markersName;
        rows.push_back(RowMaker::words("markers", "Markers", file.empty() ? "typed" : RowMaker::said(file)));
    }
    rows.push_back(group(source, project));
    auto note = RowMaker::text("note", "Note for models", RowMaker::said(source.note.value_or("")),
                               source.note.has_value());
    note.control = InspectorRow::Control::lines;
    rows.push_back(std::move(note));
    if (!missing) rows.push_back(RowMaker::button("framing", "Framing…"));
    return rows;
}

void set(Source& source, const Project& project, const std::string& row, const QVariant& value) {
    if (row == "note") source.note = RowMaker::textOf(value);
    const auto at = value.toInt();
    if (row == "group" && value.isValid() && at >= 0 && at < static_cast<int>(project.groups.size()))
        source.group = project.groups[static_cast<std::size_t>(at)].id;
}

}
