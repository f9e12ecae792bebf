#include "app/desktop/inspector/VideoRows.h"

#include "app/desktop/inspector/RowMaker.h"
#include "app/editor/Timecode.h"
#include "core/model/Lane.h"
#include "core/model/Project.h"
#include "core/model/Settings.h"

#include <algorithm>

namespace murbo::VideoRows {
namespace {

constexpr double loudest = 6; // dB: what was recorded low may be lifted
constexpr double percent = 100;

const char* titleOf(Lane lane) {
    static constexpr const char* titles[] = {"Video", "Overlays", "Sounds", "Music"};
    return titles[static_cast<std::size_t>(lane)];
}

std::string rowOf(Lane lane) {
    return "level." + std::string(rawText(lane));
}

/// Those that most footage is spoken in, and the project's own.
std::vector<std::string> languages(const Project& project) {
    std::vector<std::string> codes{"th", "en", "ja", "ko", "zh", "es", "de", "fr",
                                   "pt", "it", "ru", "id", "vi", "hi", "ar"};
    if (project.language && std::ranges::find(codes, *project.language) == codes.end())
        codes.push_back(*project.language);
    return codes;
}

InspectorRow language(const Project& project) {
    QStringList options{"As in the settings: " +
                        RowMaker::said(Settings::languageName(Settings::language()))};
    qsizetype chosen = 0;
    for (const auto& code : languages(project)) {
        if (project.language == code) chosen = options.size();
        options.append(RowMaker::said(Settings::languageName(code)));
    }
    return RowMaker::choice("language", "Language", options, chosen, chosen != 0);
}

InspectorRow aspect(const Video& video) {
    QStringList options;
    for (const auto raw : rawTexts(Video::Aspect{})) options.append(RowMaker::titled(raw));
    return RowMaker::choice("aspect", "Aspect", options, static_cast<int>(video.aspect), false);
}

}

InspectorRowList of(const Video& video, const Project& project) {
    InspectorRowList rows;
    const auto cuts = video.cuts.size();
    const auto length = RowMaker::said(Timecode::fine(video.length()));
    rows.push_back(RowMaker::text("title", "Title", RowMaker::said(video.title)));
    rows.push_back(aspect(video));
    rows.push_back(RowMaker::words("length", "Length",
                                   length + QString(" · %1 %2").arg(cuts).arg(cuts == 1 ? "cut" : "cuts")));
    rows.push_back(RowMaker::section("Levels"));
    const auto mix = video.look && video.look->mix ? *video.look->mix : Mix{};
    for (const auto lane : allLanes)
        rows.push_back(RowMaker::level(rowOf(lane), titleOf(lane), mix.level(lane), 1, loudest));
    rows.push_back(RowMaker::number("level.duck", "Duck", mix.duck.value_or(1) * percent,
                                    {0, percent, 1, percent, "%"}));
    rows.push_back(RowMaker::section("Project"));
    rows.push_back(language(project));
    return rows;
}

bool setLevel(Mix& mix, const std::string& row, const QVariant& value) {
    const auto number = RowMaker::numberOf(value);
    if (row == "level.duck") {
        mix.duck = number && *number < percent ? std::optional(*number / percent) : std::nullopt;
        return true;
    }
    std::optional<double> Mix::*const members[] = {&Mix::video, &Mix::overlays, &Mix::sounds, &Mix::music};
    for (const auto lane : allLanes)
        if (row == rowOf(lane)) {
            const bool standard = !number || *number == 0;
            mix.*members[static_cast<std::size_t>(lane)] =
                standard ? std::nullopt : std::optional(RowMaker::factor(*number));
            return true;
        }
    return false;
}

std::optional<std::string> languageAt(const Project& project, int place) {
    const auto codes = languages(project);
    if (place < 1 || place > std::ssize(codes)) return {};
    return codes[static_cast<std::size_t>(place - 1)];
}

}
