#include "core/ai/OpenRouter.h"

#include "core/ai/Pricing.h"
#include "core/ai/Reply.h"
#include "platform/base/Cancelled.h"
#include "platform/base/Data.h"
#include "platform/base/JsonWriter.h"
#include "platform/base/Problem.h"
#include "platform/base/RawText.h"
#include "platform/base/Text.h"
#include "platform/net/Http.h"
#include "platform/net/OpenRouterAddress.h"

#include <chrono>
#include <optional>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;

constexpr auto patience = 900s; // without a byte: models think for long
constexpr auto patienceInAll = 1h;
constexpr double dearest = 1e6; // dollars; a cost beyond is a slip of the one who reported it

void member(JsonWriter& writer, const char* key, std::string_view text) {
    writer.key(key);
    writer.text(Text::repaired(text));
}

void member(JsonWriter& writer, const char* key, std::int64_t number) {
    writer.key(key);
    writer.integer(number);
}

void writePicture(JsonWriter& writer, const std::string& jpeg) {
    writer.beginObject();
    member(writer, "type", "image_url");
    writer.key("image_url");
    writer.beginObject();
    member(writer, "url", "data:image/jpeg;base64," + Data{jpeg}.base64());
    writer.endObject();
    writer.endObject();
}

/// Words alone are a text; with pictures a message is a list of parts.
void writeContent(JsonWriter& writer, const Ask::Message& message) {
    if (message.pictures.empty()) return member(writer, "content", message.content);
    writer.key("content");
    writer.beginArray();
    writer.beginObject();
    member(writer, "type", "text");
    member(writer, "text", message.content);
    writer.endObject();
    for (const auto& picture : message.pictures) writePicture(writer, picture);
    writer.endArray();
}

std::string body(const Ask& ask, const std::string& modelId) {
    JsonWriter writer(JsonWriter::Layout::compact);
    writer.beginObject();
    member(writer, "model", modelId);
    member(writer, "max_tokens", ask.maxTokens);
    writer.key("reasoning");
    writer.beginObject();
    member(writer, "max_tokens", ask.thinking);
    writer.endObject();
    writer.key("messages");
    writer.beginArray();
    for (const auto& message : ask.messages) {
        writer.beginObject();
        member(writer, "role", rawText(message.role));
        writeContent(writer, message);
        writer.endObject();
    }
    writer.endArray();
    writer.endObject();
    return writer.finish();
}

std::optional<std::string> text(const json& value) {
    return value.is_string() ? std::optional(value.get<std::string>()) : std::nullopt;
}

double cost(const json& value) {
    const double dollars = value.is_number() ? value.get<double>() : 0;
    return dollars >= 0 && dollars <= dearest ? dollars : 0;
}

std::string firstContent(const json& reply) {
    const auto& choices = Reply::member(reply, "choices");
    if (!choices.is_array() || choices.empty()) return "";
    return text(Reply::member(Reply::member(choices.front(), "message"), "content")).value_or("");
}

/// A server that repeats a key must not bring it into a log or before eyes. No words are as long as a key.
std::string withoutKey(std::string text, const std::string& key) {
    constexpr std::size_t shortestKey = 8;
    if (key.size() < shortestKey) return text;
    for (auto at = text.find(key); at != text.npos; at = text.find(key, at))
        text.replace(at, key.size(), "…");
    return text;
}

OpenRouter::Answer read(const Http::Reply& reply, const std::string& key) {
    const auto parsed = json::parse(reply.body, nullptr, false);
    auto content = withoutKey(firstContent(parsed), key);
    if (reply.status == 200 && !content.empty())
        return {std::move(content), cost(Reply::member(Reply::member(parsed, "usage"), "cost"))};
    const auto words = text(Reply::member(Reply::member(parsed, "error"), "message"));
    throw Problem("OpenRouter did not answer. " +
                  withoutKey(words.value_or("The answer could not be read."), key));
}

std::string used(const json& data) {
    const auto& usage = Reply::member(data, "usage");
    const auto& limit = Reply::member(data, "limit");
    return fmt::format("The key works. Used ${:.2f} of {}.", usage.is_number() ? usage.get<double>() : 0.0,
                       limit.is_number() ? fmt::format("${:.2f}", limit.get<double>()) : "no limit");
}

}

OpenRouter::Answer OpenRouter::send(const Ask& ask, const std::string& modelId, std::stop_token stop) const {
    if (key.empty()) throw Problem("Add your OpenRouter key in Settings ▸ AI to use the AI features.");
    Http::Outgoing request;
    request.url = OpenRouterAddress::base() + "/api/v1/chat/completions";
    request.headers = {"Content-Type: application/json", "Authorization: Bearer " + key};
    request.body = body(ask, modelId);
    request.timeout = patience;
    request.longest = patienceInAll;
    return read(Http::send(request, stop), key);
}

std::string OpenRouter::check(std::stop_token stop) const {
    if (key.empty()) return "No key is saved.";
    Http::Reply reply;
    try {
        Http::Outgoing request;
        request.url = OpenRouterAddress::base() + "/api/v1/key";
        request.headers = {"Authorization: Bearer " + key};
        reply = Http::send(request, stop);
    } catch (const Problem&) {
        return "OpenRouter could not be reached.";
    }
    const auto parsed = json::parse(reply.body, nullptr, false);
    const auto& data = Reply::member(parsed, "data");
    if (reply.status == 200 && data.is_object()) return used(data);
    const bool looksRight = key.starts_with("sk-or-");
    return std::string(
               "OpenRouter turned the key away. Copy it again from openrouter.ai and paste it here.") +
           (looksRight ? "" : " It does not start with sk-or-, so it may not be an OpenRouter key.");
}

std::map<std::string, Price> OpenRouter::prices(std::stop_token stop) {
    Http::Outgoing request;
    request.url = OpenRouterAddress::base() + "/api/v1/models";
    return Pricing::prices(Http::send(request, stop).body);
}

}
