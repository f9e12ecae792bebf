#include "app/desktop/settings/SettingsSheet.h"

#include "app/editor/Keys.h"
#include "core/model/Settings.h"
#include "core/playbooks/Library.h"
#include "platform/base/Problem.h"
#include "platform/base/RawText.h"
#include "platform/store/SettingsStore.h"
#include "platform/text/Fonts.h"

#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <span>

namespace murbo {
namespace {

struct ShownSwitch {
    const char* key;
    bool standard;
};
constexpr ShownSwitch switches[] = {{"clipNames", true},
                                    {"clipQuiet", true},
                                    {"transcribeOnAdd", true},
                                    {"describeOnAdd", false},
                                    {"exportSubtitles", false}};

struct ShownNumber {
    const char* key;
    double standard;
    double min;
    double max;
};
constexpr ShownNumber numbers[] = {{"clipFilmstrip", 40, 0, 120},
                                   {"clipWaveform", 22, 0, 80},
                                   {"quietLeast", 2, 0.2, 30},
                                   {"snapReach", 8, 0, 40},
                                   {"punchZoom", 1.3, 1.01, 4}};

constexpr const char* texts[] = {"language", "libraryFolder", "soundsFolder", "musicFolder", "captionFonts"};

template <class Shown>
const Shown* find(std::span<const Shown> list, const QString& key) {
    const auto found = std::ranges::find_if(list, [&](const Shown& one) { return key == one.key; });
    return found == list.end() ? nullptr : &*found;
}

QString shownKey(const std::string& key) {
    if (key == "space") return "Space";
    if (key == "delete") return "Delete";
    return QString::fromStdString(key).toUpper();
}

QString titleOf(Command command) {
    const auto title = Keys::title(command);
    return QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
}

/// The code of a language that is given by its code or its English name, or "auto", by which transcription
/// finds it out; empty where nobody knows it.
QString languageCode(const QString& given) {
    auto code = given.section('-', 0, 0).section('_', 0, 0).toLower();
    if (code == "auto" || QLocale::codeToLanguage(code) != QLocale::AnyLanguage) return code;
    for (int at = QLocale::C + 1; at <= QLocale::LastLanguage; ++at) {
        const auto language = static_cast<QLocale::Language>(at);
        if (given.compare(QLocale::languageToString(language), Qt::CaseInsensitive) == 0)
            return QLocale::languageToCode(language);
    }
    return "";
}

/// What holds where a text is not set.
QString standardText(const QString& key) {
    if (key == "language") return QString::fromStdString(Settings::language());
    if (key == "libraryFolder") return QString::fromStdString(Library::folder().string());
    if (key == "soundsFolder") return QString::fromStdString(Library::sounds().string());
    if (key == "musicFolder") return QString::fromStdString(Library::music().string());
    return "";
}

}

template <class Change>
bool SettingsSheet::keep(Change change) {
    fault.clear();
    try {
        change();
    } catch (const Problem& error) {
        fault = QString::fromStdString(error.message());
    }
    emit changed();
    return fault.isEmpty();
}

bool SettingsSheet::isOn(const QString& key) const {
    const auto* shown = find(std::span<const ShownSwitch>(switches), key);
    return shown && SettingsStore::standard().boolean(shown->key).value_or(shown->standard);
}

double SettingsSheet::number(const QString& key) const {
    const auto* shown = find(std::span<const ShownNumber>(numbers), key);
    if (!shown) return 0;
    return std::clamp(SettingsStore::standard().number(shown->key).value_or(shown->standard), shown->min,
                      shown->max);
}

QString SettingsSheet::text(const QString& key) const {
    if (std::ranges::find(texts, key) == std::end(texts)) return "";
    const auto set = SettingsStore::standard().text(key.toStdString());
    return set && !set->empty() ? QString::fromStdString(*set) : standardText(key);
}

void SettingsSheet::setOn(const QString& key, bool on) {
    const auto* shown = find(std::span<const ShownSwitch>(switches), key);
    if (!shown || isOn(key) == on) return;
    keep([&] { SettingsStore::standard().set(shown->key, on); });
}

void SettingsSheet::setNumber(const QString& key, double value) {
    const auto* shown = find(std::span<const ShownNumber>(numbers), key);
    if (!shown || number(key) == value) return;
    keep([&] { SettingsStore::standard().set(shown->key, std::clamp(value, shown->min, shown->max)); });
}

void SettingsSheet::setText(const QString& key, const QString& value) {
    const auto given = value.trimmed();
    const auto clean = key == "language" ? languageCode(given) : given;
    if (std::ranges::find(texts, key) == std::end(texts) || text(key) == clean) return;
    keep([&] {
        if (clean.isEmpty() && !given.isEmpty())
            throw Problem("“" + given.toStdString() +
                          "” is no known language. Write its name or its code, as English or en.");
        auto& settings = SettingsStore::standard();
        if (clean.isEmpty())
            settings.remove(key.toStdString());
        else
            settings.set(key.toStdString(), clean.toStdString());
    });
}

QString SettingsSheet::languageName() const {
    return QString::fromStdString(Settings::languageName(Settings::language()));
}

QVariantList SettingsSheet::keys() const {
    QVariantList list;
    const auto names = rawTexts(Command{});
    for (std::size_t at = 0; at < names.size(); ++at) {
        const auto command = static_cast<Command>(at);
        const auto key = shownKey(Keys::standard().key(command));
        const auto wanted = search.trimmed();
        if (!titleOf(command).contains(wanted, Qt::CaseInsensitive) &&
            key.compare(wanted, Qt::CaseInsensitive) != 0)
            continue;
        list.append(QVariantMap{{"command", QString::fromStdString(std::string(names[at]))},
                                {"title", titleOf(command)},
                                {"key", key}});
    }
    return list;
}

QString SettingsSheet::keyOf(const QString& name) const {
    const auto command = fromRawText<Command>(name.toStdString());
    return command ? shownKey(Keys::standard().key(*command)) : QString();
}

bool SettingsSheet::bind(const QString& name, const QString& typed) {
    const auto command = fromRawText<Command>(name.toStdString());
    const auto key = Keys::name(typed.toStdString());
    if (!command || !key) return false;
    return keep([&] {
        const auto other = Keys::standard().bind(*command, *key);
        words = shownKey(*key) + " now gives “" + titleOf(*command) + "”";
        if (other) words += "; “" + titleOf(*other) + "” moved to " + shownKey(Keys::standard().key(*other));
    });
}

void SettingsSheet::useStandardKeys() {
    keep([&] {
        Keys::standard().useStandard();
        words = "Every command has its standard key";
    });
}

}
