#include "app/editor/commands/ShotCommands.h"

#include "app/editor/commands/Changes.h"
#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/Row.h"
#include "core/model/Settings.h"
#include "core/model/Times.h"
#include "core/render/plan/PlacedShot.h"

#include <algorithm>
#include <cmath>

namespace murbo::ShotCommands {
namespace {

constexpr double sameMoment = 0.05; ///< seconds within which a shot is changed instead of added
constexpr double punchedIn = 1.05;  ///< zoom above which the next punch goes out

bool standsAt(const Shot& shot, const LookCommands::SourceMoment& moment) {
    return shot.source == moment.source && std::abs(shot.at - moment.at) < sameMoment;
}

std::string stepName(Shot::Layout to, const std::optional<Book>& book) {
    if (book) return "Cut to " + book->playbook.name;
    auto word = std::string(rawText(to));
    word[0] = static_cast<char>(std::toupper(word[0]));
    return "Cut to " + word;
}

/// The shot that is on screen at the playhead; an implicit split where none is.
Shot onScreen(const Editor& editor) {
    static const List<Shot> none;
    const auto& video = *editor.video();
    const auto placed = PlacedShot::place(video.look ? video.look->shots : none, video.cuts);
    for (auto shot = placed.rbegin(); shot != placed.rend(); ++shot)
        if (shot->start <= editor.playback.time() + Times::noStretch) return shot->shot;
    return {};
}

using ShotChange = std::function<void(Shot&)>;

void changeIn(Look& look, const UUID& id, const ShotChange& change) {
    for (std::size_t at = 0; at < look.shots.size(); ++at)
        if (look.shots[at].id == id) change(look.shots.edit()[at]);
}

void change(Editor& editor, const UUID& id, const std::string& name, const ShotChange& body) {
    LookCommands::changeLook(editor, name, [&](Look& look) { changeIn(look, id, body); });
}

void moveTo(Editor& editor, const UUID& id, double to) {
    LookCommands::dragLook(editor,
                           [&](Look& look) { changeIn(look, id, [&](Shot& shot) { shot.at = to; }); });
}

void remove(Editor& editor, const UUID& id) {
    LookCommands::changeLook(editor, "Remove Shot", [&](Look& look) {
        std::erase_if(look.shots.edit(), [&](const Shot& shot) { return shot.id == id; });
    });
}

}

void cut(Editor& editor, Shot::Layout to, const std::optional<Book>& book) {
    const auto moment = LookCommands::momentOrRefused(editor);
    if (!moment) return;
    if (book) Changes::pin(editor, *book);
    UUID id;
    LookCommands::changeLook(editor, stepName(to, book), [&](Look& look) {
        auto& shots = look.shots.edit();
        auto shot =
            std::find_if(shots.begin(), shots.end(), [&](const Shot& one) { return standsAt(one, *moment); });
        if (shot == shots.end())
            shot = shots.insert(shots.end(), {.source = moment->source, .at = moment->at});
        shot->layout = to;
        shot->playbook = book ? std::optional(book->id()) : std::nullopt;
        shot->version = book ? std::optional(book->version()) : std::nullopt;
        id = shot->id;
    });
    editor.setPicked(Pick{Pick::Kind::shot, id, {}});
}

void punch(Editor& editor) {
    const auto moment = LookCommands::momentAt(editor);
    if (!moment) return;
    const auto shown = onScreen(editor);
    const bool out = shown.zoom > punchedIn;
    Shot shot{.source = moment->source, .at = moment->at, .layout = shown.layout};
    shot.zoom = out ? 1 : Settings::punchZoom();
    shot.playbook = shown.playbook;
    shot.version = shown.version;
    shot.values = shown.values;
    LookCommands::changeLook(editor, out ? "Punch Out" : "Punch In", [&](Look& look) {
        auto& shots = look.shots.edit();
        std::erase_if(shots, [&](const Shot& one) { return standsAt(one, *moment); });
        shots.push_back(shot);
    });
}

CommandList table() {
    const auto hasVideo = [](const Editor& editor) { return editor.video() != nullptr; };
    return {
        row<Kind::OneOf<Shot::Layout>, Kind::Maybe<Kind::PlaybookID>>("cut", "Cut to a Framing",
                                                                      {"to", "playbook"}, cut)
            .when(hasVideo),
        row<>("punch", "Punch In or Out", {}, punch).when(hasVideo),
        row<Kind::Shot, Kind::Text, Kind::Fields<Shot>>("changeShot", "Change Shot",
                                                        {"shot", "name", "change"}, change)
            .when(hasVideo),
        row<Kind::Shot, Kind::Seconds>("moveShot", "Drag a Shot", {"shot", "to"}, moveTo).when(hasVideo),
        row<Kind::Shot>("removeShot", "Remove Shot", {"shot"}, remove).when(hasVideo),
    };
}

}
