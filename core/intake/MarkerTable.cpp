#include "core/intake/MarkerTable.h"

#include "core/intake/MarkerTime.h"
#include "platform/base/Text.h"

namespace murbo {

namespace {

using Fields = std::vector<std::string>;

/// Names of a column that says when a marker was set, the best first: a recording that was split gives its
/// own time beside the time since the start, and a stream's clock is not the recording's.
constexpr std::string_view timeColumns[] = {"recording timestamp on file",
                                            "recording timestamp",
                                            "in",
                                            "start",
                                            "time",
                                            "timestamp",
                                            "timecode",
                                            "start time",
                                            "marker time",
                                            "record in",
                                            "stream timestamp"};
constexpr std::string_view recordingColumn = "recording filename";

/// The fields of a line. A field in quotes may hold the separator, and doubled quotes for one.
Fields split(std::string_view line, char separator) {
    Fields fields(1);
    bool quoted = false;
    bool blankSoFar = true; // a quote opens only where nothing but blanks stands before it
    for (std::size_t at = 0; at < line.size(); at++) {
        const char c = line[at];
        const bool doubled = quoted && c == '"' && line.substr(at + 1).starts_with('"');
        if (doubled)
            fields.back() += line[at++];
        else if (c == '"' && (quoted || blankSoFar))
            quoted = !quoted;
        else if (c == separator && !quoted)
            fields.emplace_back();
        else
            fields.back() += c;
        blankSoFar = fields.back().empty() || (blankSoFar && !doubled && (c == ' ' || c == '\t' || c == '"'));
    }
    for (auto& field : fields) field = Text::trimmedOfBlanks(field);
    return fields;
}

/// What the columns are separated by: that which the first line has most of.
char separator(std::string_view line) {
    const auto many = [&](char c) { return std::count(line.begin(), line.end(), c); };
    if (many('\t') > 0) return '\t';
    return many(';') > many(',') ? ';' : ',';
}

std::optional<std::size_t> column(const Fields& header, std::string_view name) {
    for (std::size_t index = 0; index < header.size(); index++)
        if (Text::lowercased(header[index]) == name) return index;
    return {};
}

std::optional<std::size_t> timeColumn(const Fields& header) {
    for (const auto name : timeColumns)
        if (const auto found = column(header, name)) return found;
    return {};
}

/// A field without the frames that follow its seconds.
std::string_view withoutFrames(std::string_view field) {
    if (const auto frames = field.find(';'); frames != field.npos) return field.substr(0, frames);
    if (std::count(field.begin(), field.end(), ':') == 3) return field.substr(0, field.rfind(':'));
    return field;
}

std::string stem(std::string_view name) {
    return std::filesystem::path(name).stem().string();
}

/// The rows of one recording, known by the name in a column.
std::vector<Fields> rowsOf(std::string_view recording, std::size_t named, const std::vector<Fields>& rows) {
    std::vector<Fields> kept;
    std::set<std::string> names;
    for (const auto& row : rows) {
        if (named >= row.size()) continue;
        names.insert(stem(row[named]));
        if (stem(row[named]) == stem(recording)) kept.push_back(row);
    }
    return kept.empty() && names.size() == 1 ? rows : kept;
}

}

std::vector<double> MarkerTable::parse(const std::vector<std::string_view>& lines,
                                       std::string_view recording) {
    if (lines.empty()) return {};
    const char between = separator(lines.front());
    std::vector<Fields> rows;
    for (const auto line : lines) rows.push_back(split(line, between));
    const auto named = timeColumn(rows.front());
    const auto file = column(rows.front(), recordingColumn);
    if (named) rows.erase(rows.begin());
    if (named && file && !recording.empty()) rows = rowsOf(recording, *file, rows);

    std::vector<double> times;
    for (const auto& row : rows) {
        if (named.value_or(0) >= row.size()) continue;
        const auto& field = row[named.value_or(0)];
        if (const auto time = MarkerTime::parse(named ? withoutFrames(field) : field)) times.push_back(*time);
    }
    return times;
}

}
