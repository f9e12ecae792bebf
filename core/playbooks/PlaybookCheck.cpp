#include "core/playbooks/PlaybookCheck.h"

#include "core/model/EaseCurve.h"
#include "core/model/Entrance.h"
#include "core/playbooks/Drift.h"
#include "core/playbooks/Effect.h"
#include "core/playbooks/Hold.h"
#include "core/playbooks/LayerBlend.h"
#include "core/playbooks/LayerContent.h"
#include "core/playbooks/LayerShape.h"
#include "core/playbooks/ParameterName.h"
#include "core/playbooks/ParameterType.h"
#include "core/playbooks/Playbook.h"
#include "platform/base/Json.h"
#include "platform/base/Problem.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace murbo {
namespace {

using Faults = std::vector<std::string>;

/// So that a file made to have faults without end still gives a message that somebody can read.
constexpr std::size_t maxFaults = 1000;
constexpr std::size_t maxFaultBytes = 1'000'000;

template <class T>
std::vector<std::string_view> fieldNames() {
    return T::fields([](const auto&... field) { return std::vector<std::string_view>{field.name...}; });
}

bool knows(const std::vector<std::string_view>& fields, std::string_view field) {
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

template <HasRawTexts Word>
std::string notOneOf(std::string_view where, std::string_view word) {
    return fmt::format("{}“{}” is not one of {}.", where, word, fmt::join(rawTexts(Word{}), ", "));
}

/// The elements of a list of objects; nothing where it is no list or anything else stands in it.
std::optional<std::vector<JsonValue>> objects(const std::optional<JsonValue>& value) {
    if (!value || !value->isList()) return std::nullopt;
    std::vector<JsonValue> elements;
    for (std::size_t at = 0; at < value->size(); ++at) {
        elements.push_back(value->element(at));
        if (!elements.back().isObject()) return std::nullopt;
    }
    return elements;
}

std::optional<std::string> text(const std::optional<JsonValue>& value) {
    if (!value || !value->isText()) return std::nullopt;
    return value->text();
}

/// Calls with the name of each parameter that a text asks for, as long as it says so.
template <class Call>
void eachParameter(std::string_view text, const Call& wantsMore) {
    for (auto at = text.find('$'); at != text.npos; at = text.find('$', at + 1)) {
        const auto name = text.substr(at + 1, ParameterName::length(text.substr(at + 1)));
        if (!name.empty() && !wantsMore(name)) return;
    }
}

class Check {
public:
    Check(const JsonValue& given, const std::optional<std::filesystem::path>& lookedIn)
        : root(given), folder(lookedIn) {}

    Faults faults() {
        fields();
        parameterTypes();
        identity();
        kind();
        declared("captions", root.member("captions"));
        const auto list = root.member("layers");
        if (const auto layers = objects(list))
            for (std::size_t at = 0; at < layers->size() && !isFull(); ++at)
                layer((*layers)[at], fmt::format("layers[{}]", at));
        if (!list || !list->isList()) fault("A playbook needs layers, a list.");
        return std::move(found);
    }

private:
    bool isFull() const { return found.size() >= maxFaults || bytes >= maxFaultBytes; }
    void fault(std::string_view words) {
        if (isFull()) return;
        bytes += words.size();
        found.emplace_back(words);
    }

    void fields() {
        auto known = fieldNames<Playbook>();
        std::sort(known.begin(), known.end());
        for (const auto key : root.names())
            if (!knows(known, key))
                fault(fmt::format("“{}” is not a field of a playbook. Fields: {}.", key,
                                  fmt::join(known, ", ")));
    }

    void parameterTypes() {
        const auto params = root.member("params");
        if (!params || !params->isObject()) return;
        const auto names = params->names();
        const auto isObject = [&](std::string_view name) { return params->member(name)->isObject(); };
        if (!std::all_of(names.begin(), names.end(), isObject)) return;
        for (const auto name : names) {
            const auto entry = params->member(name);
            const auto type = text(entry->member("type"));
            if (type && !fromRawText<ParameterType>(*type))
                fault(notOneOf<ParameterType>(fmt::format("params.{}: type ", name), *type));
        }
    }

    void identity() {
        const auto id = text(root.member("id"));
        if (id && (id->find('/') != std::string::npos || id->find("..") != std::string::npos))
            fault(fmt::format("id: “{}” may not contain / or ..", *id));
    }

    void kind() {
        const auto kind = text(root.member("kind"));
        if (kind && *kind != "layout" && *kind != "generator")
            fault(fmt::format(
                "kind: “{}” is not a kind of playbook; leave it out, or say layout or generator.", *kind));
    }

    void layer(const JsonValue& layer, const std::string& where) {
        const auto known = fieldNames<Playbook::Layer>();
        for (const auto key : layer.names())
            if (!knows(known, key)) fault(fmt::format("{}: “{}” is not a field of a layer.", where, key));
        content(layer, where);
        words(layer, where);
        effects(layer, where);
        keys(layer, where);
        for (const auto key : layer.names()) declared(fmt::format("{}.{}", where, key), layer.member(key));
        if (folder) files(layer, where);
    }

    void content(const JsonValue& layer, const std::string& where) {
        std::vector<std::string_view> present;
        for (const auto word : rawTexts(LayerContent{}))
            if (layer.member(word)) present.push_back(word);
        if (present.size() == 1) return;
        fault(fmt::format(
            "{} must be exactly one of image, video, text, shape, particles, slot or sound; it is {}.", where,
            present.empty() ? "none" : fmt::format("{}", fmt::join(present, " and "))));
    }

    void words(const JsonValue& layer, const std::string& where) {
        word<Entrance>(layer, where, "in");
        word<Entrance>(layer, where, "out");
        word<Hold>(layer, where, "hold");
        word<Blend>(layer, where, "blend");
        word<LayerShape>(layer, where, "shape");
        word<Drift>(layer, where, "drift");
    }

    template <HasRawTexts Word>
    void word(const JsonValue& layer, const std::string& where, const char* key) {
        const auto value = text(layer.member(key));
        if (value && !value->starts_with('$') && !fromRawText<Word>(*value))
            fault(notOneOf<Word>(fmt::format("{}.{}: ", where, key), *value));
    }

    void effects(const JsonValue& layer, const std::string& where) {
        const auto list = layer.member("effects");
        if (!list || !list->isList()) return;
        // One that is no text is a fault of types, and then none is of words.
        for (std::size_t at = 0; at < list->size(); ++at)
            if (!list->element(at).isText()) return;
        for (std::size_t at = 0; at < list->size() && !isFull(); ++at) {
            const auto effect = list->element(at).text();
            if (!effectNamed(effect)) fault(notOneOf<Effect>(where + ".effects: ", effect));
        }
    }

    void keys(const JsonValue& layer, const std::string& where) {
        const auto keys = objects(layer.member("keys"));
        if (!keys) return;
        const auto known = fieldNames<Playbook::Key>();
        for (std::size_t at = 0; at < keys->size() && !isFull(); ++at) {
            const auto place = fmt::format("{}.keys[{}]", where, at);
            for (const auto name : (*keys)[at].names())
                if (!knows(known, name)) fault(fmt::format("{}: “{}” is not a field of a key.", place, name));
            const auto ease = text((*keys)[at].member("ease"));
            if (ease && !fromRawText<EaseCurve>(*ease)) fault(notOneOf<EaseCurve>(place + ".ease: ", *ease));
        }
    }

    /// A parameter that is used must be declared.
    void declared(const std::string& where, const std::optional<JsonValue>& value) {
        const auto used = text(value);
        if (!used) return;
        const auto params = root.member("params");
        eachParameter(*used, [&](std::string_view name) {
            if (!params || !params->isObject() || !params->member(name))
                fault(fmt::format("{}: ${} is not declared in params.", where, name));
            return !isFull();
        });
    }

    void files(const JsonValue& layer, const std::string& where) {
        for (const char* key : {"image", "video", "sound"}) {
            const auto name = text(layer.member(key));
            if (!name || name->find('$') != std::string::npos) continue;
            std::error_code ignored;
            if (name->find("..") != std::string::npos)
                fault(fmt::format("{}.{}: {} climbs out of the playbook.", where, key, *name));
            else if (!std::filesystem::exists(*folder / std::filesystem::path(*name).relative_path(),
                                              ignored))
                fault(fmt::format("{}.{}: {} is not in the playbook.", where, key, *name));
        }
    }

    const JsonValue& root;
    const std::optional<std::filesystem::path>& folder;
    Faults found;
    std::size_t bytes = 0; // of their words
};

Json parsed(std::string_view text) {
    if (text.size() > Playbook::maxBytes) throw Problem("The playbook is too large.");
    return Json::parse(text);
}

}

void PlaybookCheck::check(std::string_view text, const std::optional<std::filesystem::path>& folder) {
    const auto json = parsed(text);
    const auto root = json.root();
    if (!root.isObject()) throw Problem("A playbook is a JSON object.");
    const auto faults = Check(root, folder).faults();
    if (!faults.empty()) throw Problem(fmt::format("{}", fmt::join(faults, "\n")));
}

}
