#include "app/desktop/inspector/SoundRows.h"

#include "app/desktop/inspector/RowMaker.h"

#include <algorithm>

namespace murbo::SoundRows {
namespace {

// What a cue that says nothing plays at, as the mixer has it.
constexpr double musicVolume = 0.35;
constexpr double soundVolume = 0.7;
constexpr double shortest = 0.1; // seconds

}

InspectorRowList of(const SoundCue& cue, bool music, std::optional<double> fileLength) {
    InspectorRowList rows;
    const double standard = music ? musicVolume : soundVolume;
    const double skip = cue.skip.value_or(0);
    rows.push_back(RowMaker::special("wave", InspectorRow::Control::wave, RowMaker::said(cue.file)));
    if (cue.from && !cue.from->empty())
        rows.push_back(RowMaker::words("from", "Folder", RowMaker::said(*cue.from)));
    rows.push_back(RowMaker::button("replace", "Replace…"));
    rows.push_back(RowMaker::time("skip", "Start in file", skip, cue.skip.has_value()));
    const auto whole = fileLength ? std::max(*fileLength - skip, 0.0) : 0.0;
    if (cue.length || fileLength)
        rows.push_back(
            RowMaker::time("length", "Length", cue.length.value_or(whole), cue.length.has_value()));
    rows.push_back(RowMaker::toggle("mute", "Mute", cue.muted.value_or(false)));
    rows.push_back(RowMaker::section("Level"));
    rows.push_back(RowMaker::level("level", "Level", cue.volume.value_or(standard), standard, 0));
    return rows;
}

void set(SoundCue& cue, const std::string& row, const QVariant& value) {
    const auto number = RowMaker::numberOf(value);
    if (row == "level")
        cue.volume = number ? std::optional(RowMaker::factor(std::min(*number, 0.0))) : std::nullopt;
    if (row == "skip") cue.skip = number && *number > 0 ? number : std::nullopt;
    if (row == "length") cue.length = number ? std::optional(std::max(*number, shortest)) : std::nullopt;
    if (row == "file") {
        cue.file = value.toString().toStdString();
        cue.from.reset();
    }
    if (row == "mute") cue.muted = RowMaker::truthOf(value);
}

}
