#pragma once

#include "core/mcp/MCPTool.h"

#include <random>
#include <vector>

#include <nlohmann/json.hpp>

namespace murbo {

/// Makes arguments for tools from the catalogue's own schemas: right ones, and ones of every wrong kind and
/// size. The same seed gives the same calls.
class CallMaker {
public:
    using json = nlohmann::json;

    explicit CallMaker(unsigned seed) : random(seed) {}

    const MCPTool& tool() { return MCPTool::all()[below(MCPTool::all().size())]; }

    /// An object for these parameters. Some are left out, are null or are no such value; some are too many.
    json object(std::span<const MCPTool::Param> params) {
        auto made = json::object();
        for (const auto& param : params)
            if (!chance(param.required ? 20 : 2)) made[std::string(param.name)] = value(param);
        if (chance(20)) made[text()] = any(2);
        return made;
    }

private:
    std::size_t below(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    }
    bool chance(std::size_t oneIn) { return below(oneIn) == 0; }
    template <class Value>
    const Value& oneOf(const std::vector<Value>& from) {
        return from[below(from.size())];
    }

    json value(const MCPTool::Param& param) {
        if (chance(8)) return any(3);
        if (param.type == MCPTool::Param::Type::text) return text();
        return param.type == MCPTool::Param::Type::number ? number() : array(param);
    }

    json array(const MCPTool::Param& param) {
        auto made = json::array();
        for (auto left = chance(200) ? 6000 : below(5); left > 0; --left)
            made.push_back(chance(10) ? any(2) : param.items.empty() ? json(text()) : object(param.items));
        return made;
    }

    json any(std::size_t depth) {
        if (depth > 0 && chance(7)) return json::array({any(depth - 1), any(depth - 1)});
        if (depth > 0 && chance(6)) return json{{text(), any(depth - 1)}};
        const auto large = static_cast<std::int64_t>(random()) * (chance(2) ? 1 : -1'000'003);
        return oneOf<json>({nullptr, chance(2), large, number(), text()});
    }

    json number() {
        static const std::vector<json> some{0,     1,    -1,   0.7,   1.2,     2,     1e308,  -1e308, 1e-308,
                                            "1.5", "-2", "1e", "nan", "1e999", "inf", "0x10", -0.0,   7200};
        return oneOf(some);
    }

    /// A tag, a word of a vocabulary, or what nobody expects.
    std::string text() {
        static const auto some =
            json::parse(R"(["C01", "C02", "c1", " C02 ", "C99", "C01.01", "C01.02", "C01.03",
            "c1.1", "C02.01", "C02.02", "C01.n1", "C01.99", "C99.01", "V1", "V2", "v1", "V9", "B1", "split", "content",
            "face", "stock.layout.pip", "push", "shake", "16:9", "9:16", "4:3", "setup", "hype", "fail", "one two",
            "one", "two", "a title", "{\"name\":\"x\",\"layers\":[]}", "hits/boom.wav", "../../etc/passwd",
            "/dev/zero", "", " ", "\n\t", "a\u0000b", "\u001b[31m", "สวัสดีครับ", "🔥", "“x”", "{picked}", "%s%n",
            "C01.01 ", "C18446744073709551616", "V-1", "C01.01.01", "."])")
                .get<std::vector<std::string>>();
        if (chance(500)) return std::string(25'000, 'x');
        if (chance(100)) return std::string(300, '[');
        return oneOf(some);
    }

    std::mt19937 random;
};

}
