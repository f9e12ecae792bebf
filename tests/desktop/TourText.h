#pragma once

#include <QAbstractItemModel>
#include <QColor>
#include <QJSValue>
#include <QMetaProperty>
#include <QRectF>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

/// What values, lists and objects of Qt are in lines of text, the same on every machine.
namespace murbo::TourText {

using nlohmann::json;
using Lines = std::vector<std::string>;

inline double rounded(double number) {
    const double whole = std::round(number * 1e6) / 1e6;
    return whole == 0 ? 0 : whole; // no "-0"
}

/// All numbers in it rounded, and what says nothing in an object left out.
inline json tidied(const json& value) {
    if (value.is_number_float()) {
        const double number = rounded(value.get<double>());
        if (number == std::floor(number) && std::abs(number) < 1e15) return static_cast<std::int64_t>(number);
        return number;
    }
    if (!value.is_structured()) return value;
    json made = value.is_array() ? json::array() : json::object();
    for (const auto& [key, member] : value.items()) {
        const auto tidy = tidied(member);
        if (value.is_array())
            made.push_back(tidy);
        else if (tidy != "" && tidy != false && tidy != 0 && tidy != json::array() &&
                 tidy != json::object() && !tidy.is_null())
            made[key] = tidy;
    }
    return made;
}

inline json of(QVariant value) {
    if (value.canConvert<QJSValue>() && value.metaType().name() == std::string("QJSValue"))
        value = value.value<QJSValue>().toVariant();
    const auto list = [](std::initializer_list<double> numbers) { return tidied(json(numbers)); };
    switch (value.typeId()) {
        case QMetaType::UnknownType:
        case QMetaType::Nullptr:
            return nullptr;
        case QMetaType::Bool:
            return value.toBool();
        case QMetaType::Int:
        case QMetaType::LongLong:
        case QMetaType::Double:
        case QMetaType::Float:
            if (!std::isfinite(value.toDouble())) return "no number";
            return tidied(value.toDouble());
        case QMetaType::QRectF:
        case QMetaType::QRect: {
            const auto rect = value.toRectF();
            return list({rect.x(), rect.y(), rect.width(), rect.height()});
        }
        case QMetaType::QPointF:
            return list({value.toPointF().x(), value.toPointF().y()});
        case QMetaType::QSizeF:
        case QMetaType::QSize:
            return list({value.toSizeF().width(), value.toSizeF().height()});
        case QMetaType::QImage: // whether it is drawn by now is a matter of time
            return nullptr;
        case QMetaType::QVariantMap: {
            json made = json::object();
            const auto map = value.toMap();
            for (auto at = map.begin(); at != map.end(); ++at) made[at.key().toStdString()] = of(at.value());
            return tidied(made);
        }
        default:
            break;
    }
    if (auto* object = value.value<QObject*>()) return std::string("a ") + object->metaObject()->className();
    if (value.typeId() != QMetaType::QString && value.canConvert<QVariantList>()) {
        json made = json::array();
        for (const auto& element : value.toList()) made.push_back(of(element));
        return made;
    }
    return value.toString().toStdString();
}

inline bool saysNothing(const json& value) {
    return value.is_null() || value == "" || value == false || value == json::array();
}

inline Lines rowsOf(const QAbstractItemModel& model) {
    Lines lines;
    const auto roles = model.roleNames();
    for (int row = 0; row < model.rowCount(); ++row) {
        json made = json::object();
        for (auto role = roles.begin(); role != roles.end(); ++role)
            made[role.value().toStdString()] = of(model.index(row, 0).data(role.key()));
        lines.push_back("- " + tidied(made).dump());
    }
    return lines;
}

/// A value in one line; a list of values in a line each.
inline Lines linesOf(const QVariant& value) {
    const auto said = of(value);
    if (!said.is_array()) return {said.dump()};
    Lines lines;
    for (const auto& one : said) lines.push_back("- " + one.dump());
    return lines;
}

/// All that an object of the system's own says by its properties, and the rows of the lists that it has.
inline Lines of(const QObject& object) {
    Lines lines;
    const auto* meta = object.metaObject();
    const auto isOwn = [](const QMetaObject* type) {
        return type && std::string(type->className()).starts_with("murbo::");
    };
    const auto* own = meta;
    while (own && !isOwn(own)) own = own->superClass(); // what a view adds to one
    int first = meta->propertyCount(), end = own ? own->propertyCount() : 0;
    for (; isOwn(own); own = own->superClass()) first = own->propertyOffset();
    for (int at = first; at < end; ++at) {
        const auto property = meta->property(at);
        // What the machine has, how fast it is, what the next frame finds under a mouse that rests, and what
        // is measured aside.
        static const std::set<std::string> others{"whisper", "others", "droppedWords", "hint",
                                                  "hintAt",  "bladeX", "boxSize"};
        if (others.contains(property.name())) continue;
        const auto value = property.read(&object);
        const auto* model = qobject_cast<QAbstractItemModel*>(value.value<QObject*>());
        const auto said = of(value);
        const bool many = said.is_array() && !said.empty() && said[0].is_object();
        if (model || many) lines.push_back(std::string(property.name()) + ":");
        if (model) std::ranges::move(rowsOf(*model), std::back_inserter(lines));
        if (many)
            for (const auto& one : said) lines.push_back("- " + one.dump());
        if (!model && !many && !saysNothing(said)) lines.push_back(property.name() + (": " + said.dump()));
    }
    if (const auto* model = qobject_cast<const QAbstractItemModel*>(&object))
        std::ranges::move(rowsOf(*model), std::back_inserter(lines));
    return lines;
}

/// What a line of a list says otherwise than before, value by value.
inline Lines otherwise(const std::string& place, const std::string& before, const std::string& now) {
    const auto parsed = [](const std::string& line) {
        return line.starts_with("- {") ? json::parse(line.substr(2), nullptr, false) : json();
    };
    const auto old = parsed(before), fresh = parsed(now);
    if (!old.is_object() || !fresh.is_object()) return {place + before + " → " + now};
    Lines lines;
    for (const auto& change : json::diff(old, fresh))
        lines.push_back(place + change["path"].get<std::string>().substr(1) + " " +
                        change.value("value", json()).dump());
    return lines;
}

/// What goes from one list of lines to another, each with its place: as many as went came otherwise.
inline Lines changed(const Lines& before, const Lines& now) {
    std::vector common(before.size() + 1, std::vector<int>(now.size() + 1));
    for (auto a = before.size(); a-- > 0;)
        for (auto b = now.size(); b-- > 0;)
            common[a][b] =
                before[a] == now[b] ? common[a + 1][b + 1] + 1 : std::max(common[a + 1][b], common[a][b + 1]);
    Lines lines;
    for (std::size_t a = 0, b = 0; a < before.size() || b < now.size(); ++a, ++b) {
        const auto firstGone = a, firstCame = b;
        while ((a < before.size() || b < now.size()) &&
               !(a < before.size() && b < now.size() && before[a] == now[b])) {
            const bool goes = b == now.size() || (a < before.size() && common[a + 1][b] >= common[a][b + 1]);
            ++(goes ? a : b);
        }
        const auto place = [](std::size_t at) { return std::to_string(at) + ": "; };
        const bool stays = a - firstGone == b - firstCame;
        for (auto one = firstGone; one < a; ++one)
            if (!stays)
                lines.push_back("gone " + place(one) + before[one]);
            else
                std::ranges::copy(otherwise(place(one - firstGone + firstCame), before[one],
                                            now[one - firstGone + firstCame]),
                                  std::back_inserter(lines));
        for (auto one = firstCame; one < b && !stays; ++one) lines.push_back("came " + place(one) + now[one]);
    }
    return lines;
}

}
