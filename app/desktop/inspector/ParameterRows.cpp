#include "app/desktop/inspector/ParameterRows.h"

#include "app/desktop/inspector/RowMaker.h"
#include "core/playbooks/ParameterType.h"
#include "platform/base/Numbers.h"

#include <algorithm>

namespace murbo::ParameterRows {
namespace {

constexpr std::string_view prefix = "value.";
constexpr int digits = 6; // of a number that is filled in
constexpr const char* yes = "1";
constexpr const char* no = "0";

using Param = Playbook::Param;

ParameterType typeOf(const Param& param) {
    return fromRawText<ParameterType>(param.type).value_or(ParameterType::text);
}

bool isOn(const std::string& text) {
    return text == yes || text == "true" || text == "yes";
}

QString nameOf(const std::string& key, const Param& param) {
    return param.label && !param.label->empty() ? RowMaker::said(*param.label) : RowMaker::titled(key);
}

InspectorRow number(const std::string& id, const QString& name, const Param& param, const std::string& text) {
    const double standard = Numbers::parse(param.value.value_or("")).value_or(0);
    const double from = param.min.value_or(std::min(0.0, standard));
    const double to = std::max(param.max.value_or(std::max(1.0, standard * 2)), from);
    const double step = to - from > 20 ? 1 : to - from > 4 ? 0.1 : 0.01;
    return RowMaker::number(id, name, Numbers::parse(text), {from, to, step, standard});
}

InspectorRow choice(const std::string& id, const QString& name, const Param& param, const std::string& text) {
    QStringList options;
    qsizetype chosen = -1;
    for (const auto& option : param.options.value_or(std::vector<std::string>())) {
        if (option == text) chosen = options.size();
        options.append(RowMaker::said(option));
    }
    return RowMaker::choice(id, name, options, chosen, text != param.value.value_or(""));
}

InspectorRow row(const std::string& key, const Param& param, const std::string& text) {
    const auto id = std::string(prefix) + key;
    const auto name = nameOf(key, param);
    auto made = RowMaker::text(id, name, RowMaker::said(text), text != param.value.value_or(""));
    switch (typeOf(param)) {
        case ParameterType::text:
            break;
        case ParameterType::colour:
            made.control = InspectorRow::Control::colour;
            break;
        case ParameterType::media:
            made.control = InspectorRow::Control::media;
            break;
        case ParameterType::number:
            return number(id, name, param, text);
        case ParameterType::choice:
            return choice(id, name, param, text);
        case ParameterType::toggle:
            made.control = InspectorRow::Control::toggle;
            made.current = isOn(text);
            break;
    }
    return made;
}

/// What it says comes before how it looks: texts first, of those the title, then the other types.
std::vector<std::string> inOrder(const std::map<std::string, Param>& params) {
    std::vector<std::string> keys;
    for (const auto& [key, param] : params) keys.push_back(key);
    std::ranges::stable_sort(
        keys, {}, [&](const std::string& key) { return std::pair(typeOf(params.at(key)), key != "title"); });
    return keys;
}

/// The text that a value stands for; nothing for a choice that there is not.
std::optional<std::string> filledIn(const Param& param, const QVariant& value) {
    const auto text = value.toString().toStdString();
    switch (typeOf(param)) {
        case ParameterType::number:
            return QString::number(value.toDouble(), 'g', digits).toStdString();
        case ParameterType::choice: {
            const auto options = param.options.value_or(std::vector<std::string>());
            const auto at = value.toInt();
            if (at < 0 || at >= static_cast<int>(options.size())) return std::nullopt;
            return options[static_cast<std::size_t>(at)];
        }
        case ParameterType::toggle: {
            const bool inWords = param.value == "true" || param.value == "false";
            return value.toBool() ? (inWords ? "true" : yes) : (inWords ? "false" : no);
        }
        default:
            return text;
    }
}

}

InspectorRowList of(const Book& book, const std::optional<Values>& values) {
    if (!book.playbook.params || book.playbook.params->empty()) return {};
    InspectorRowList rows{RowMaker::section("Parameters")};
    const auto filled = book.values(values);
    for (const auto& key : inOrder(*book.playbook.params)) {
        const auto found = filled.find(key);
        rows.push_back(row(key, book.playbook.params->at(key), found == filled.end() ? "" : found->second));
    }
    return rows;
}

bool isOne(const std::string& row) {
    return row.starts_with(prefix);
}

void set(std::optional<Values>& values, const Book& book, const std::string& row, const QVariant& value) {
    if (!isOne(row) || !book.playbook.params) return;
    const auto key = row.substr(prefix.size());
    const auto param = book.playbook.params->find(key);
    if (param == book.playbook.params->end()) return;
    auto filled = values.value_or(Values());
    if (!value.isValid())
        filled.erase(key);
    else if (const auto text = filledIn(param->second, value))
        filled[key] = *text;
    values = filled.empty() ? std::nullopt : std::optional(filled);
}

}
