#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "platform/base/RawText.h"

#include <optional>

namespace murbo {

/// Makes the rows of the inspector.
namespace RowMaker {

using Control = InspectorRow::Control;

InspectorRow section(const char* name);
InspectorRow words(std::string id, const QString& name, const QString& words);
InspectorRow text(std::string id, const QString& name, const QString& text, bool changed = false);
InspectorRow time(std::string id, const QString& name, double seconds, bool changed = false);
InspectorRow toggle(std::string id, const QString& name, bool on);
/// `about` is what its press needs to know.
InspectorRow button(std::string id, const QString& name, const QString& about = {});
/// That the library has another version of a playbook.
InspectorRow update(std::int64_t version, const std::string& book);
InspectorRow special(std::string id, Control control, const QString& current = {});

/// A number with a slider.
struct Span {
    double from = 0;
    double to = 1;
    double step = 0.01;
    double standard = 0;
    QString unit = {};
};
InspectorRow number(std::string id, const QString& name, const std::optional<double>& value,
                    const Span& span);

/// A factor of loudness in decibels, from -60, which is silence, to `loudest`.
InspectorRow level(std::string id, const QString& name, double factor, double standard, double loudest);
/// The factor that a level says.
double factor(double decibels);

/// One of some words; `chosen` is its place.
InspectorRow choice(std::string id, const QString& name, const QStringList& options, qsizetype chosen,
                    bool changed);

/// A raw text in words: "slide-left" as "Slide Left".
QString titled(std::string_view raw);
QString said(const std::string& text);

/// One of an enum's cases by its raw text. Before them stands `none`, where that may be: no text, and any
/// that the enum doesn't know.
template <HasRawTexts Enum>
InspectorRow oneOf(std::string id, const QString& name, const std::optional<std::string>& raw,
                   const char* none) {
    QStringList options{none};
    qsizetype chosen = 0;
    for (const auto text : rawTexts(Enum{})) {
        if (raw == text) chosen = options.size();
        options.append(titled(text));
    }
    return choice(std::move(id), name, options, chosen, chosen != 0);
}
/// The raw text at that place; nothing for the first.
template <HasRawTexts Enum>
std::optional<std::string> rawAt(const QVariant& place) {
    const auto texts = rawTexts(Enum{});
    const auto at = place.toInt() - 1;
    if (at < 0 || at >= static_cast<int>(texts.size())) return {};
    return std::string(texts[static_cast<std::size_t>(at)]);
}

/// How something moves that knows no bounce: smooth where it says nothing.
InspectorRow ease(const std::optional<std::string>& raw);
std::optional<std::string> easeAt(const QVariant& place);

/// A set value as what a record keeps: nothing where it goes back to its standard.
std::optional<double> numberOf(const QVariant& value);
std::optional<bool> truthOf(const QVariant& value);
std::optional<std::string> textOf(const QVariant& value);

}

}
