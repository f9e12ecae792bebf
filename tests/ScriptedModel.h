#pragma once

#include "tests/Environment.h"
#include "tests/FakeServer.h"

#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {

/// OpenRouter on this machine with one answer to all.
struct Served {
    Served(int status, const std::string& body)
        : server([=](const std::string&) { return FakeServer::reply(status, body); }) {}
    explicit Served(const std::string& bytes) : server([=](const std::string&) { return bytes; }) {}

    FakeServer server;
    Environment address{"MURBO_OPENROUTER", server.base + "/"};
};

/// Cuts from line to line, as a model names them.
inline nlohmann::json cutsOf(std::initializer_list<std::pair<const char*, const char*>> pairs) {
    auto list = nlohmann::json::array();
    for (const auto& [from, to] : pairs) list.push_back({{"from", from}, {"to", to}, {"role", "payoff"}});
    return list;
}

/// OpenRouter on this machine: scripted requests with what the test has written down, in turn, and keeps what
/// was asked.
class ScriptedModel {
public:
    using json = nlohmann::json;

    ScriptedModel() : server([this](const std::string& request) { return answer(request); }) {}

    /// Another reply of a model, as its text.
    void says(const std::string& text, const json& cost = 0.01) {
        sends(FakeServer::reply(
            200,
            json{{"choices", {{{"message", {{"content", text}}}}}}, {"usage", {{"cost", cost}}}}.dump()));
    }
    void answers(const json& object) { says(object.dump()); }

    /// Another answer, as the bytes that are sent. None: the server says nothing and waits.
    void sends(const std::string& bytes) {
        const std::lock_guard lock(guard);
        scripted.push_back(bytes);
    }

    /// Is called on the server's thread once a request is there and before it is answered.
    std::function<void()> beforeAnswer;

    /// The heads and bodies of all requests but for price lists.
    std::vector<std::string> heads() const {
        const std::lock_guard lock(guard);
        return gotHeads;
    }
    std::vector<json> bodies() const {
        const std::lock_guard lock(guard);
        return gotBodies;
    }
    /// What the last request of all said, message by message with the role before each.
    std::string lastWords() const {
        std::string words;
        const auto all = bodies();
        if (all.empty()) return "";
        for (const auto& message : all.back().at("messages"))
            words += fmt::format("[{}]\n{}\n", message.at("role").get<std::string>(),
                                 message.at("content").is_string() ? message.at("content").get<std::string>()
                                                                   : message.at("content").dump());
        return words;
    }
    int priceLists() const {
        const std::lock_guard lock(guard);
        return lists;
    }

    const std::string& base() const { return server.base; }

private:
    std::string answer(const std::string& request) {
        if (request.starts_with("GET ")) return priceList();
        const auto end = request.find("\r\n\r\n");
        std::string bytes = FakeServer::reply(500, "nothing is scripted", "text/plain");
        {
            const std::lock_guard lock(guard);
            gotHeads.push_back(request.substr(0, end));
            gotBodies.push_back(json::parse(request.substr(end + 4), nullptr, false));
            if (!scripted.empty()) {
                bytes = std::move(scripted.front());
                scripted.pop_front();
            }
        }
        if (beforeAnswer) beforeAnswer();
        return bytes;
    }

    std::string priceList() {
        const std::lock_guard lock(guard);
        ++lists;
        return FakeServer::reply(200, R"({"data": [{"id": "anthropic/claude-haiku-5.5",
            "pricing": {"prompt": "0.000001", "completion": "0.000005"}}]})");
    }

    mutable std::mutex guard;
    std::deque<std::string> scripted;
    std::vector<std::string> gotHeads;
    std::vector<json> gotBodies;
    int lists = 0;
    FakeServer server; // last: it scripted by what stands above
};

}
