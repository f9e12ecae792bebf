#include "core/intake/transcription/Scribe.h"

#include "core/intake/transcription/Sound.h"
#include "platform/base/Data.h"
#include "platform/base/Files.h"
#include "platform/base/JsonWriter.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"
#include "platform/net/Http.h"

#include <algorithm>
#include <optional>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr const char* path = "/api/v1/audio/transcriptions";
constexpr std::size_t largestSound = std::size_t{1} << 32;

// Seconds that decide where a line ends.
constexpr double longestPause = 0.6;
constexpr double longestSpan = 9.0;
constexpr double longSpan = 5.0;
constexpr double longestPauseWhenLong = 0.15;

std::string body(const std::string& model, const std::string& language, const std::string& wav) {
    JsonWriter writer(JsonWriter::Layout::compact);
    const auto member = [&](const char* key, std::string_view value) {
        writer.key(key);
        writer.text(value);
    };
    writer.beginObject();
    writer.key("input_audio");
    writer.beginObject();
    member("data", Data{wav}.base64());
    member("format", "wav");
    writer.endObject();
    member("language", language);
    member("model", model);
    member("response_format", "verbose_json");
    writer.key("timestamp_granularities");
    writer.beginArray();
    writer.text("word");
    writer.endArray();
    writer.endObject();
    return writer.finish();
}

/// A member, null where there is none of that name or nothing to have one.
const json& member(const json& value, const char* name) {
    static const json nothing;
    const auto found = value.is_object() ? value.find(name) : value.end();
    return found == value.end() ? nothing : *found;
}

std::optional<std::string> text(const json& value) {
    return value.is_string() ? std::optional(value.get<std::string>()) : std::nullopt;
}

double numberOr(const json& value, double otherwise) {
    return value.is_number() ? value.get<double>() : otherwise;
}

/// A word of the reply; nothing where a part of it is missing. It never ends before it starts.
std::optional<HeardLine> word(const json& element) {
    auto said = text(member(element, "word"));
    if (!said) said = text(member(element, "text"));
    const auto& start = member(element, "start");
    const auto& end = member(element, "end");
    if (!said || !start.is_number() || !end.is_number()) return std::nullopt;
    const auto from = start.get<double>();
    return HeardLine{from, std::max(from, end.get<double>()), std::move(*said)};
}

/// The words of the reply, in the order in which they were said.
std::vector<HeardLine> words(const json& reply) {
    std::vector<HeardLine> found;
    const auto& list = member(reply, "words");
    if (!list.is_array()) return found;
    for (const auto& element : list)
        if (auto each = word(element)) found.push_back(std::move(*each));
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& one, const auto& other) { return one.start < other.start; });
    return found;
}

Transcribed read(const Http::Reply& reply) {
    const auto parsed = json::parse(reply.body, nullptr, false);
    const auto heard = reply.status == 200 ? words(parsed) : std::vector<HeardLine>{};
    if (heard.empty())
        throw Problem("Scribe could not transcribe this. " +
                      text(member(member(parsed, "error"), "message")).value_or("No timed words came back."));
    return {Scribe::lines(heard), numberOr(member(member(parsed, "usage"), "cost"), 0), ""};
}

Transcribed transcribe(const std::string& key, const std::string& model, const Scribe::Service& service,
                       const fs::path& wav, const std::string& language, const std::stop_token& stop) {
    if (key.empty()) throw Problem("Add your OpenRouter key in Settings ▸ AI to use Scribe.");
    const auto sound = Files::readWhole(wav, largestSound);
    Http::Outgoing request;
    request.url = service.base + path;
    request.headers = {"Content-Type: application/json", "Authorization: Bearer " + key};
    request.body = body(model, language, sound);
    request.timeout = service.timeout;
    auto result = read(Http::send(request, stop));
    result.request = fmt::format("{}, language {}, {} s of sound", model, language,
                                 sound.size() / static_cast<std::size_t>(Sound::speechBytesPerSecond));
    return result;
}

bool isAscii(char letter) {
    return static_cast<unsigned char>(letter) < 0x80;
}

bool joins(const HeardLine& line, const HeardLine& word) {
    const double pause = word.start - line.end;
    const double span = word.end - line.start;
    return pause < longestPause && span < longestSpan && (pause < longestPauseWhenLong || span < longSpan);
}

/// Scripts that write their words together have no letters in ASCII.
void join(HeardLine& line, const HeardLine& word) {
    const char first = word.text.front();
    if (isAscii(line.text.back()) && isAscii(first) && first != ' ') line.text += ' ';
    line.text += word.text;
    line.end = word.end;
}

}

Transcriber Scribe::with(const std::string& key, const std::string& model, const Service& service) {
    return {name, true, [=](const auto& wav, const auto& language, const auto&, auto stop) {
                return transcribe(key, model, service, wav, language, stop);
            }};
}

std::vector<HeardLine> Scribe::lines(const std::vector<HeardLine>& words) {
    std::vector<HeardLine> found;
    for (const auto& word : words) {
        if (Text::trimmed(word.text).empty()) continue;
        if (!found.empty() && joins(found.back(), word))
            join(found.back(), word);
        else
            found.push_back({word.start, word.end, Text::trimmedOfBlanks(word.text)});
    }
    return found;
}

}
