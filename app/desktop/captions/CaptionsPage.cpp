#include "app/desktop/captions/CaptionsPage.h"

#include "app/desktop/captions/CaptionEdits.h"
#include "app/desktop/captions/StyleFields.h"
#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/StyleCommands.h"
#include "core/model/CaptionPresets.h"
#include "core/model/Settings.h"
#include "core/playbooks/Library.h"

#include <algorithm>

namespace murbo {
namespace {

std::optional<Pick> pickOf(const QString& line, int piece) {
    const auto id = UUID::parse(line.toStdString());
    if (!id) return {};
    return Pick{Pick::Kind::caption, *id, piece < 0 ? std::nullopt : std::optional<std::int64_t>(piece)};
}

constexpr int longestName = 80;
constexpr int drawSoon = 250; ///< ms without a change after which the cards are drawn anew

}

CaptionsPage::CaptionsPage(Editor& open) : session(open), captions(open) {
    drawing.setSingleShot(true);
    drawing.setInterval(drawSoon);
    connect(&drawing, &QTimer::timeout, this, &CaptionsPage::draw);
    connect(&session, &Editor::projectChanged, this, &CaptionsPage::refresh);
    connect(&session, &Editor::openVideoChanged, this, &CaptionsPage::refresh);
    connect(&drawn, &PresetPictures::changed, this, &CaptionsPage::assignCards);
}

CaptionsPage::~CaptionsPage() = default;

void CaptionsPage::setWatched(bool on) {
    if (on == isWatched()) return;
    captions.setWatched(on);
    refresh();
}

void CaptionsPage::refresh() {
    if (isWatched()) {
        assignCards();
        drawing.start();
    }
    emit changed(); // the timeline shows whether there are captions, whichever tab is up
}

bool CaptionsPage::hasVideo() const {
    return session.video() != nullptr;
}

bool CaptionsPage::isOn() const {
    const auto* video = session.video();
    return video && (!video->look || video->look->captions.on);
}

void CaptionsPage::setOn(bool on) {
    if (on != isOn())
        LookCommands::changeLook(session, on ? "Show Captions" : "Hide Captions",
                                 [&](Look& look) { look.captions.on = on; });
}

void CaptionsPage::setOfProject(bool whole) {
    if (whole == project) return;
    project = whole;
    refresh();
    emit changed();
}

// ------------------------------------------------------------------------- style --

/// What was set where the change goes.
CaptionStyle CaptionsPage::own() const {
    if (project) return session.project().captionStyle.value_or(CaptionStyle());
    const auto* video = session.video();
    return video && video->look ? video->look->captions.style.value_or(CaptionStyle()) : CaptionStyle();
}

CaptionStyle CaptionsPage::inForce() const {
    const auto& whole = session.project();
    if (!project && session.video()) return CaptionPresets::style(whole, *session.video());
    const auto base = whole.captionStyle.value_or(CaptionStyle());
    return base.over(CaptionPresets::resolved(whole, base.base));
}

QVariantList CaptionsPage::fields() const {
    return StyleFields::shown(own(), inForce());
}

void CaptionsPage::set(const QString& key, const QVariant& value) {
    auto tried = CaptionStyle();
    if (!StyleFields::set(tried, key, value)) return;
    StyleCommands::setCaptionStyle(session, project,
                                   [&](CaptionStyle& style) { StyleFields::set(style, key, value); });
}

void CaptionsPage::settle(const QString& key, const QVariant& value) {
    auto tried = CaptionStyle();
    if (!StyleFields::set(tried, key, value)) return;
    StyleCommands::settleCaptionStyle(session, project,
                                      [&](CaptionStyle& style) { StyleFields::set(style, key, value); });
}

void CaptionsPage::reset(const QString& key) {
    StyleCommands::setCaptionStyle(session, project,
                                   [&](CaptionStyle& style) { StyleFields::clear(style, key); });
}

// ----------------------------------------------------------------------- presets --

/// The built-in presets and the project's, then those of the library that the project doesn't know.
std::vector<CaptionStyle> CaptionsPage::styles() const {
    auto list = CaptionPresets::of(session.project());
    for (const auto& style : Library::styles())
        if (style.id && std::ranges::find(list, style.id, &CaptionStyle::id) == list.end())
            list.push_back(style);
    return list;
}

CaptionStyle CaptionsPage::resolved(const CaptionStyle& preset) const {
    return preset.over(CaptionPresets::resolved(session.project(), preset.base.value_or("pop")));
}

std::string CaptionsPage::chosen() const {
    return inForce().base.value_or("pop");
}

void CaptionsPage::assignCards() {
    std::vector<PresetRow> rows;
    const auto base = own().base ? *own().base : chosen();
    for (const auto& style : styles()) {
        const auto id = style.id.value_or("");
        const auto name = QString::fromStdString(style.name.value_or(id));
        rows.push_back({id, name, drawn.picture(QString::fromStdString(id)), id == base});
    }
    cards.assign(std::move(rows));
}

void CaptionsPage::setCardSize(int width, int height) {
    const QSize size(std::clamp(width, 16, 1024), std::clamp(height, 16, 1024));
    if (size == cardSize) return;
    cardSize = size;
    if (isWatched()) drawing.start();
}

void CaptionsPage::draw() {
    if (!isWatched()) return;
    PresetPictures::PresetWish wish;
    if (const auto* video = session.video()) wish.video = *video;
    wish.project = session.project();
    wish.missing = session.missing();
    wish.fonts = Settings::captionFonts();
    wish.package = session.package();
    wish.at = session.playback.time();
    for (const auto& style : styles()) wish.styles.push_back(resolved(style));
    wish.size = cardSize;
    drawn.ask(std::move(wish));
}

void CaptionsPage::pickPreset(const QString& id) {
    for (const auto& style : styles())
        if (QString::fromStdString(style.id.value_or("")) == id)
            return StyleCommands::pickCaptionPreset(session, style, project);
}

void CaptionsPage::pickPresetAt(int row) {
    const auto all = styles();
    if (row >= 0 && row < std::ssize(all))
        StyleCommands::pickCaptionPreset(session, all[static_cast<std::size_t>(row)], project);
}

QVariantList CaptionsPage::saved() const {
    QVariantList list;
    int row = 0;
    for (const auto& style : styles()) {
        const auto id = style.id.value_or("");
        if (StyleCommands::isSaved(session, id))
            list.append(QVariantMap{{"name", QString::fromStdString(style.name.value_or(id))}, {"row", row}});
        ++row;
    }
    return list;
}

QString CaptionsPage::meanPreset(int row) {
    const auto all = styles();
    const bool has = row >= 0 && row < std::ssize(all);
    meant = has ? all[static_cast<std::size_t>(row)].id.value_or("") : "";
    return meantPreset();
}

QString CaptionsPage::meantPreset() const {
    const auto id = meant.empty() ? chosen() : meant;
    for (const auto& style : styles())
        if (style.id == id) return QString::fromStdString(style.name.value_or(id));
    return QString::fromStdString(id);
}

void CaptionsPage::renamePreset(const QString& name) try {
    const auto id = meant.empty() ? chosen() : meant;
    StyleCommands::renamePreset(session, id, name.simplified().left(longestName).toStdString());
    refresh();
    emit changed();
} catch (const std::exception& error) {
    session.refuse(error.what());
}

void CaptionsPage::removePreset() try {
    StyleCommands::removePreset(session, meant.empty() ? chosen() : meant);
    meant.clear();
    refresh();
    emit changed();
} catch (const std::exception& error) {
    session.refuse(error.what());
}

// ------------------------------------------------------------------------- words --

QString CaptionsPage::words(const QString& line, int piece) const {
    const auto pick = pickOf(line, piece);
    return pick ? QString::fromStdString(CaptionEdits::text(session, *pick)).simplified() : "";
}

void CaptionsPage::retext(const QString& line, int piece, const QString& typed) {
    const auto pick = pickOf(line, piece);
    if (pick && typed.simplified() != words(line, piece))
        CaptionEdits::retext(session, *pick, typed.simplified().toStdString());
}

void CaptionsPage::breakAt(const QString& line, int piece, const QString& typed, int place) {
    retext(line, piece, typed);
    const auto pick = pickOf(line, piece);
    if (pick) CaptionEdits::breakAt(session, *pick, typed.left(place).toStdString().size());
}

bool CaptionsPage::savePreset(const QString& name) try {
    const auto clean = name.simplified().left(longestName);
    if (clean.isEmpty() || !session.video()) return false;
    StyleCommands::savePreset(session, inForce(), clean.toStdString());
    return true;
} catch (const std::exception& error) {
    session.refuse(error.what());
    return false;
}

}
