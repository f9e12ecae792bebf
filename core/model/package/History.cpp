#include "core/model/package/History.h"

#include "core/model/ModelCodec.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/base/SiblingFile.h"

namespace murbo {
namespace {

std::size_t weight(const History::Step& step) {
    std::size_t sum = 0;
    for (const auto* side : {&step.before, &step.after})
        for (const auto& entry : *side) sum += Parts::weight(entry.second);
    return sum;
}

std::optional<std::string> nameOfLast(const std::vector<History::Step>& steps) {
    if (steps.empty()) return std::nullopt;
    return steps.back().name;
}

/// Moves the last step from one list to the other, and returns it.
const History::Step* carry(std::vector<History::Step>& from, std::vector<History::Step>& to) {
    if (from.empty()) return nullptr;
    to.push_back(std::move(from.back()));
    from.pop_back();
    return &to.back();
}

}

std::optional<std::string> History::undoName() const {
    return nameOfLast(done);
}

std::optional<std::string> History::redoName() const {
    return nameOfLast(undone);
}

void History::record(const std::string& name, const Project& from, const Project& to) {
    auto change = Parts::changed(from, to);
    if (change.after.empty()) return;
    done.push_back({name, std::move(change.before), std::move(change.after)});
    undone.clear();
    dropOldest();
}

void History::dropOldest() {
    std::size_t kept = 0;
    std::size_t bytes = 0;
    for (auto step = done.rbegin(); step != done.rend() && kept < maxSteps; ++step, ++kept) {
        if (step->bytes == 0) step->bytes = weight(*step);
        bytes += step->bytes;
        if (bytes > maxBytes && kept > 0) break;
    }
    done.erase(done.begin(), done.end() - static_cast<std::ptrdiff_t>(kept));
}

std::optional<std::string> History::undo(Project& project) {
    const auto* step = carry(done, undone);
    if (!step) return std::nullopt;
    Parts::apply(step->before, project);
    return step->name;
}

std::optional<std::string> History::redo(Project& project) {
    const auto* step = carry(undone, done);
    if (!step) return std::nullopt;
    Parts::apply(step->after, project);
    return step->name;
}

/// `undo.json`: every part a base64 text whose bytes are JSON again, so that one broken part costs no other.
struct HistoryFile {
    static constexpr const char* name = "undo.json";
    /// Base64 takes a third more than the bytes that the history may hold, and redo counts as well.
    static constexpr std::size_t maxBytes = History::maxBytes * 3;

    using Texts = std::map<std::string, std::string>;

    /// A part that can't be written (a number that is not finite) is left out, on both sides.
    static std::pair<Texts, Texts> texts(const History::Step& step) {
        std::pair<Texts, Texts> sides;
        for (const auto& [key, before] : step.before) {
            const auto after = step.after.find(key);
            if (after == step.after.end()) continue;
            try {
                auto text = Parts::json(before).base64();
                sides.second.emplace(key, Parts::json(after->second).base64());
                sides.first.emplace(key, std::move(text));
            } catch (const Problem&) {
            }
        }
        return sides;
    }

    static void write(JsonWriter& writer, const std::vector<History::Step>& steps) {
        writer.beginArray();
        for (const auto& step : steps) {
            const auto [before, after] = texts(step);
            writer.beginObject();
            writer.key("after");
            Codec::write(writer, after);
            writer.key("before");
            Codec::write(writer, before);
            writer.key("name");
            writer.text(step.name);
            writer.endObject();
        }
        writer.endArray();
    }

    static std::string text(const History& history) {
        JsonWriter writer(JsonWriter::Layout::compact);
        writer.beginObject();
        writer.key("future");
        write(writer, history.undone);
        writer.key("past");
        write(writer, history.done);
        writer.endObject();
        return writer.finish();
    }

    static JsonValue required(const JsonValue& object, const char* key) {
        const auto member = object.member(key);
        if (!member) object.failMissing(key);
        return *member;
    }

    static ProjectParts readParts(const JsonValue& object) {
        ProjectParts parts;
        for (auto& [key, data] : Codec::read<std::map<std::string, Data>>(object))
            parts.emplace(key, std::move(data));
        return parts;
    }

    static std::vector<History::Step> readSteps(const JsonValue& list) {
        std::vector<History::Step> steps;
        for (std::size_t at = 0; at < list.size(); ++at) {
            const auto step = list.element(at);
            steps.push_back({required(step, "name").text(), readParts(required(step, "before")),
                             readParts(required(step, "after"))});
        }
        return steps;
    }

    static History read(std::string_view text) {
        const auto json = Json::parse(text);
        const auto root = json.root();
        History history;
        history.done = readSteps(required(root, "past"));
        history.undone = readSteps(required(root, "future"));
        history.dropOldest();
        return history;
    }
};

History ProjectPackage::readHistory(const std::filesystem::path& package) {
    try {
        return HistoryFile::read(Files::readWhole(package / HistoryFile::name, HistoryFile::maxBytes));
    } catch (const std::exception&) { // running out of memory included
        return {};
    }
}

void ProjectPackage::writeHistory(const History& history, const std::filesystem::path& package) {
    Files::writeWhole(SiblingFile::followed(package / HistoryFile::name), HistoryFile::text(history));
}

}
