#include "app/editor/commands/OverlayCommands.h"

#include "app/editor/KeptMedia.h"
#include "app/editor/commands/Changes.h"
#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/Row.h"
#include "app/editor/commands/ShotCommands.h"
#include "core/playbooks/Playbooks.h"
#include "platform/base/Text.h"

#include <algorithm>

namespace murbo::OverlayCommands {
namespace {

constexpr double standardLength = 3;
constexpr double shortest = 0.2;
constexpr const char* pictureBook = "stock.generator.picture";

/// As long as the playbook is by nature, but no longer than the video still runs.
double lengthOf(const Book& book, const Video& video, double at) {
    const auto natural = std::max(book.playbook.length.value_or(standardLength), shortest);
    return std::min(natural, std::max(video.length() - at, shortest));
}

void lay(Editor& editor, const std::string& name, Overlay overlay) {
    const auto id = overlay.id;
    LookCommands::changeLook(editor, name,
                             [&](Look& look) { look.overlays.edit().push_back(std::move(overlay)); });
    editor.setPicked(Pick{Pick::Kind::overlay, id, {}});
}

Overlay made(const Editor& editor, const Book& book, const LookCommands::SourceMoment& moment, double at) {
    Overlay overlay;
    overlay.playbook = book.id();
    overlay.version = book.version();
    overlay.source = moment.source;
    overlay.at = moment.at;
    overlay.length = lengthOf(book, *editor.video(), at);
    overlay.mute = book.playbook.mute;
    return overlay;
}

using OverlayChange = std::function<void(Overlay&)>;

void changeIn(Look& look, const UUID& id, const OverlayChange& change) {
    for (std::size_t at = 0; at < look.overlays.size(); ++at)
        if (look.overlays[at].id == id) change(look.overlays.edit()[at]);
}

void change(Editor& editor, const UUID& id, const std::string& name, const OverlayChange& body) {
    LookCommands::changeLook(editor, name, [&](Look& look) { changeIn(look, id, body); });
}

void drag(Editor& editor, const UUID& id, std::optional<double> start, std::optional<double> length) {
    const auto moment = start ? LookCommands::momentAt(editor, start) : std::nullopt;
    LookCommands::dragLook(editor, [&](Look& look) {
        changeIn(look, id, [&](Overlay& overlay) {
            if (moment) std::tie(overlay.source, overlay.at) = std::pair(moment->source, moment->at);
            if (length) overlay.length = std::max(*length, shortest);
        });
    });
}

void remove(Editor& editor, const UUID& id) {
    LookCommands::changeLook(editor, "Remove Overlay", [&](Look& look) {
        std::erase_if(look.overlays.edit(), [&](const Overlay& one) { return one.id == id; });
    });
}

}

void addOverlay(Editor& editor, const Book& book, std::optional<double> at) {
    const auto moment = LookCommands::momentOrRefused(editor, at);
    if (!moment) return;
    if (book.playbook.kind == "layout") {
        if (at) editor.playback.seek(*at);
        return ShotCommands::cut(editor, Shot::Layout::split, book);
    }
    Changes::pin(editor, book);
    lay(editor, "Add " + book.playbook.name,
        made(editor, book, *moment, at.value_or(editor.playback.time())));
}

void addMedia(Editor& editor, const std::filesystem::path& file, std::optional<double> at) {
    const auto moment = LookCommands::momentOrRefused(editor, at);
    const auto book = moment ? Playbooks::find(pictureBook) : std::nullopt;
    if (!book) return;
    Changes::pin(editor, *book);
    const auto kept = LookCommands::keepMedia(editor, file, "pictures");
    if (!kept) return editor.refuse(KeptMedia::failure(file));
    auto overlay = made(editor, *book, *moment, at.value_or(editor.playback.time()));
    overlay.values = Values{{"media", *kept}};
    lay(editor, "Add " + Text::repaired(file.filename().string()), std::move(overlay));
}

void updateOverlay(Editor& editor, const UUID& id) {
    const auto* video = editor.video();
    if (!video || !video->look) return;
    for (const auto& overlay : video->look->overlays) {
        if (overlay.id != id) continue;
        const auto book = Playbooks::find(overlay.playbook);
        if (!book) return;
        Changes::pin(editor, *book);
        return change(editor, id, "Update Playbook", [&](Overlay& one) { one.version = book->version(); });
    }
}

CommandList table() {
    const auto hasVideo = [](const Editor& editor) { return editor.video() != nullptr; };
    using Kind::Maybe;
    return {
        row<Kind::PlaybookID, Maybe<Kind::Seconds>>("addOverlay", "Add a Playbook", {"playbook", "at"},
                                                    addOverlay)
            .when(hasVideo),
        row<Kind::File>("addMedia", "Add a Picture or Video", {"file"},
                        [](Editor& editor, const std::filesystem::path& file) { addMedia(editor, file); })
            .when(hasVideo),
        row<Kind::Overlay, Kind::Text, Kind::Fields<Overlay>>("changeOverlay", "Change Overlay",
                                                              {"overlay", "name", "change"}, change)
            .when(hasVideo),
        row<Kind::Overlay, Maybe<Kind::Seconds>, Maybe<Kind::Seconds>>("dragOverlay", "Drag an Overlay",
                                                                       {"overlay", "start", "length"}, drag)
            .when(hasVideo),
        row<Kind::Overlay>("removeOverlay", "Remove Overlay", {"overlay"}, remove).when(hasVideo),
        row<Kind::Overlay>("updateOverlay", "Update Playbook", {"overlay"}, updateOverlay).when(hasVideo),
    };
}

}
