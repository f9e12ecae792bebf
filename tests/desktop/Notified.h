#pragma once

#include "tests/desktop/TourText.h"

#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>
#include <memory>

namespace murbo {

/// Watches over whether objects announce what becomes another one of their properties: what shows them would
/// else go on with the old value.
class Notified {
public:
    void follow(const std::string& name, QObject* object) {
        if (!object || known.contains(object)) return;
        auto& one = known[object];
        one.object = object;
        one.name = name;
        const auto* meta = object->metaObject();
        for (int at = 0; at < meta->propertyCount(); ++at) {
            const auto property = meta->property(at);
            const auto* owner = property.enclosingMetaObject();
            if (!std::string(owner->className()).starts_with("murbo::") || aside.contains(property.name()))
                continue;
            one.values[at] = TourText::of(property.read(object));
            if (property.hasNotifySignal() && !one.spies.contains(property.notifySignalIndex()))
                one.spies[property.notifySignalIndex()] =
                    std::make_unique<QSignalSpy>(object, property.notifySignal());
        }
    }

    /// What is another one since it was asked last and was not announced.
    TourText::Lines unsaid() {
        TourText::Lines lines;
        std::erase_if(known, [](const auto& entry) { return !entry.second.object; });
        for (auto& [object, one] : known) {
            for (auto& [at, before] : one.values) {
                const auto property = object->metaObject()->property(at);
                auto now = TourText::of(property.read(object));
                const auto said = one.spies.find(property.notifySignalIndex());
                if (now.dump() != before.dump() && (said == one.spies.end() || said->second->isEmpty()))
                    lines.push_back(one.name + "." + property.name() + " " + now.dump());
                before = std::move(now);
            }
            for (auto& [signal, spy] : one.spies) spy->clear();
        }
        std::ranges::sort(lines);
        return lines;
    }

private:
    /// What is measured by the clock or under a mouse that rests; what no view shows.
    inline static const std::set<std::string> aside{"droppedWords", "hint",    "hintAt",
                                                    "bladeX",       "boxSize", "blockCount"};

    struct Followed {
        QPointer<QObject> object;
        std::string name;
        std::map<int, TourText::json> values;
        std::map<int, std::unique_ptr<QSignalSpy>> spies;
    };
    std::map<QObject*, Followed> known;
};

}
