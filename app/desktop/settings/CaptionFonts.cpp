#include "app/desktop/settings/CaptionFonts.h"

#include "platform/text/Fonts.h"

namespace murbo {
namespace {

constexpr const char* key = "captionFonts";
constexpr const char* specimen = "Hello สวัสดี こんにちは 😀";
constexpr QSize specimenSize{680, 68}; // pixels
constexpr double letterSize = 48;      // small enough for one line of any family

}

CaptionFonts::CaptionFonts(SettingsSheet& sheet) : settings(sheet) {
    // A change of settings is seldom one of fonts: a search of the keys is one at each letter.
    connect(&settings, &SettingsSheet::changed, this, [this, before = families()]() mutable {
        auto now = families();
        if (now == before) return;
        before = std::move(now);
        draw();
        emit changed();
    });
    connect(&drawn, &PresetPictures::changed, this, &CaptionFonts::changed);
}

QStringList CaptionFonts::families() const {
    QStringList list;
    for (const auto& part : settings.text(key).split(',', Qt::SkipEmptyParts))
        if (const auto family = part.trimmed(); !family.isEmpty()) list.append(family);
    return list;
}

QVariantList CaptionFonts::rows() const {
    QVariantList list;
    for (const auto& family : families())
        list.append(QVariantMap{{"family", family},
                                {"installed", Fonts::installed(family.toStdString())},
                                {"picture", drawn.picture(family)}});
    return list;
}

QStringList CaptionFonts::others() const {
    const auto taken = families();
    QStringList list;
    for (const auto& family : Fonts::families())
        if (const auto name = QString::fromStdString(family); !taken.contains(name, Qt::CaseInsensitive))
            list.append(name);
    return list;
}

void CaptionFonts::setWatched(bool on) {
    if (std::exchange(watched, on) == on) return;
    draw();
    emit changed();
}

void CaptionFonts::add(const QString& family) {
    const auto name = family.trimmed();
    auto list = families();
    if (name.isEmpty() || name.contains(',') || list.contains(name, Qt::CaseInsensitive)) return;
    list.append(name);
    keep(list);
}

void CaptionFonts::move(int from, int to) {
    auto list = families();
    if (from == to || from < 0 || to < 0 || from >= list.size() || to >= list.size()) return;
    list.move(from, to);
    keep(list);
}

void CaptionFonts::remove(int row) {
    auto list = families();
    if (row < 0 || row >= list.size()) return;
    list.removeAt(row);
    keep(list);
}

void CaptionFonts::keep(const QStringList& families) {
    settings.setText(key, families.join(", "));
}

void CaptionFonts::draw() {
    if (!watched || std::exchange(specimens, families()) == families()) return;
    PresetPictures::PresetWish wish;
    wish.specimen = specimen;
    wish.size = specimenSize;
    for (const auto& family : specimens) {
        CaptionStyle style{.id = family.toStdString(), .font = family.toStdString(), .size = letterSize};
        style.fill = "FFFFFF";
        style.outline = "";
        wish.styles.push_back(style.over(CaptionStyle::builtIn()[1]));
    }
    drawn.ask(std::move(wish));
}

}
