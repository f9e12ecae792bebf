#include "app/desktop/inspector/RowMaker.h"

#include <algorithm>
#include <cmath>

namespace murbo::RowMaker {
namespace {

constexpr double silence = -60; // dB, shown for a factor of 0
constexpr double nearEnough = 1e-6;

double decibels(double factor) {
    return factor > 0 ? std::max(20 * std::log10(factor), silence) : silence;
}

InspectorRow row(std::string id, Control control, const QString& name, QVariant current,
                 bool changed = false) {
    InspectorRow made;
    made.id = std::move(id);
    made.control = control;
    made.name = name;
    made.current = std::move(current);
    made.changed = changed;
    return made;
}

}

InspectorRow section(const char* name) {
    return row(std::string("folded.") + name, Control::section, name, {});
}
InspectorRow words(std::string id, const QString& name, const QString& words) {
    return row(std::move(id), Control::words, name, words);
}
InspectorRow text(std::string id, const QString& name, const QString& text, bool changed) {
    return row(std::move(id), Control::text, name, text, changed);
}
InspectorRow time(std::string id, const QString& name, double seconds, bool changed) {
    return row(std::move(id), Control::time, name, seconds, changed);
}
InspectorRow toggle(std::string id, const QString& name, bool on) {
    return row(std::move(id), Control::toggle, name, on);
}
InspectorRow button(std::string id, const QString& name, const QString& about) {
    return row(std::move(id), Control::button, name, about);
}
InspectorRow update(std::int64_t version, const std::string& book) {
    return button("update", QString("Update to Version %1").arg(version), said(book));
}
InspectorRow special(std::string id, Control control, const QString& current) {
    return row(std::move(id), control, {}, current);
}

InspectorRow number(std::string id, const QString& name, const std::optional<double>& value,
                    const Span& span) {
    const double now = value && std::isfinite(*value) ? *value : span.standard;
    auto made = row(std::move(id), Control::number, name, now, std::abs(now - span.standard) > nearEnough);
    made.from = span.from;
    made.to = span.to;
    made.step = span.step;
    made.unit = span.unit;
    return made;
}

InspectorRow level(std::string id, const QString& name, double factor, double standard, double loudest) {
    // To a tenth: what a factor of two digits comes to would look odd.
    const auto rounded = [](double level) { return std::round(level * 10) / 10; };
    return number(std::move(id), name, rounded(decibels(factor)),
                  {silence, loudest, 0.5, rounded(decibels(standard)), "dB"});
}

double factor(double decibels) {
    return decibels <= silence ? 0 : std::pow(10, decibels / 20);
}

InspectorRow choice(std::string id, const QString& name, const QStringList& options, qsizetype chosen,
                    bool changed) {
    auto made = row(std::move(id), Control::choice, name, static_cast<int>(chosen), changed);
    made.options = options;
    return made;
}

InspectorRow ease(const std::optional<std::string>& raw) {
    const QStringList options{"Smooth", "Linear", "Snap"};
    const auto chosen = raw ? std::max<qsizetype>(options.indexOf(titled(*raw)), 0) : 0;
    return choice("ease", "Ease", options, chosen, chosen != 0);
}

std::optional<std::string> easeAt(const QVariant& place) {
    const int at = place.toInt();
    if (at == 1) return "linear";
    if (at == 2) return "snap";
    return {};
}

QString titled(std::string_view raw) {
    auto words = QString::fromUtf8(raw.data(), static_cast<qsizetype>(raw.size())).replace('-', ' ');
    for (qsizetype at = 0; at < words.size(); ++at)
        if (at == 0 || words[at - 1] == ' ') words[at] = words[at].toUpper();
    return words;
}

QString said(const std::string& text) {
    return QString::fromStdString(text);
}

std::optional<double> numberOf(const QVariant& value) {
    if (!value.isValid()) return {};
    const double number = value.toDouble();
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<bool> truthOf(const QVariant& value) {
    return value.toBool() ? std::optional(true) : std::nullopt;
}

std::optional<std::string> textOf(const QVariant& value) {
    const auto text = value.toString().trimmed();
    return text.isEmpty() ? std::nullopt : std::optional(text.toStdString());
}

}
