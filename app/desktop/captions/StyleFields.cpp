#include "app/desktop/captions/StyleFields.h"

#include "core/model/CaptionEntrance.h"
#include "core/model/CaptionExit.h"
#include "platform/image/Colour.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <type_traits>

namespace murbo::StyleFields {
namespace {

struct StyleControl {
    const char* key;
    const char* name;
    const char* kind;
    double from = 0;
    double to = 0;
    double step = 0;
    const char* unit = "";
};

constexpr StyleControl controls[] = {
    {"font", "Font", "fonts"},
    {"weight", "Weight", "number", 0, 1, 0.01},
    {"size", "Size", "number", 20, 240, 1, "px"},
    {"fill", "Colour", "colour"},
    {"outline", "Outline", "shade"},
    {"stroke", "Stroke", "number", 0, 80, 1, "%"},
    {"shadow", "Shadow", "flag"},
    {"pill", "Box", "shade"},
    {"bigScale", "Big size", "number", 1, 4, 0.05, "×"},
    {"bigFill", "Big colour", "shade"},
    {"upper", "Capitals", "flag"},
    {"y", "Height", "number", 0.05, 0.95, 0.01},
    {"seam", "By the seam", "flag"},
    {"most", "Longest", "number", 4, 80, 1},
    {"motion", "Motion", "choice"},
    {"exit", "Exit", "choice"},
};

template <class Word>
QStringList wordsOf() {
    QStringList list;
    for (const auto text : rawTexts(Word())) list.append(QString::fromUtf8(text.data(), text.size()));
    return list;
}

QStringList words(const QString& key) {
    if (key == "motion") return wordsOf<CaptionEntrance>();
    return key == "exit" ? wordsOf<CaptionExit>() : QStringList();
}

const StyleControl* control(const QString& key) {
    const auto* found = std::ranges::find_if(controls, [&](const auto& one) { return key == one.key; });
    return found == std::end(controls) ? nullptr : found;
}

/// Calls `body` with the member of that name.
template <class Style, class Body>
void withField(Style& style, const QString& key, Body body) {
    CaptionStyle::fields([&](const auto&... field) {
        const auto visit = [&](const auto& one) {
            if (key == QLatin1String(one.name)) body(style.*one.member);
        };
        (visit(field), ...);
    });
}

QVariant value(const CaptionStyle& style, const QString& key) {
    QVariant found;
    withField(style, key, [&](const auto& field) {
        using Held = typename std::decay_t<decltype(field)>::value_type;
        if constexpr (std::is_same_v<Held, std::string>)
            found = QString::fromStdString(field.value_or(""));
        else if constexpr (std::is_same_v<Held, std::int64_t>)
            found = static_cast<double>(field.value_or(0));
        else
            found = field.value_or(Held());
    });
    return found;
}

bool isSet(const CaptionStyle& style, const QString& key) {
    bool set = false;
    withField(style, key, [&](const auto& field) { set = field.has_value(); });
    return set;
}

/// A text that this control may hold: a colour, none where it may be off, one of its words.
bool isAllowed(const StyleControl& of, const QString& text) {
    const std::string_view kind = of.kind;
    if (kind == "choice") return words(of.key).contains(text);
    if (kind == "fonts") return text.size() <= 400;
    if (kind == "shade" && text.isEmpty()) return true;
    return Colour::hex(text.toStdString()).has_value();
}

}

QVariantList shown(const CaptionStyle& own, const CaptionStyle& inForce) {
    QVariantList list;
    for (const auto& one : controls) {
        const QString key = one.key;
        list.append(QVariantMap{{"key", key},
                                {"name", one.name},
                                {"kind", one.kind},
                                {"value", value(inForce, key)},
                                {"changed", isSet(own, key)},
                                {"from", one.from},
                                {"to", one.to},
                                {"step", one.step},
                                {"unit", QString::fromUtf8(one.unit)},
                                {"words", words(key)}});
    }
    return list;
}

bool set(CaptionStyle& style, const QString& key, const QVariant& given) {
    const auto* of = control(key);
    if (!of) return false;
    bool done = false;
    withField(style, key, [&](auto& field) {
        using Held = typename std::decay_t<decltype(field)>::value_type;
        if constexpr (std::is_same_v<Held, bool>) {
            field = given.toBool();
            done = true;
        } else if constexpr (std::is_same_v<Held, std::string>) {
            done = isAllowed(*of, given.toString());
            if (done) field = given.toString().toStdString();
        } else {
            const double number = given.toDouble(&done);
            done = done && std::isfinite(number);
            if (done) field = static_cast<Held>(std::clamp(number, of->from, of->to));
        }
    });
    return done;
}

void clear(CaptionStyle& style, const QString& key) {
    if (control(key)) withField(style, key, [](auto& field) { field.reset(); });
}

}
