#pragma once

#include "app/mcp/MCPSession.h"
#include "platform/base/Dates.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// What AI apps have asked for and what came of it, newest last. In memory alone.
class MCPActivity {
public:
    static constexpr std::size_t maxKept = 300;

    struct Entry {
        UUID id = UUID::make();
        Date at;
        std::string tool;
        std::string asked; ///< the arguments, for the owner's eyes
        std::string said;  ///< the first lines of the answer
        bool failed = false;
        std::optional<std::string> step;   ///< the name of the undo step of a change
        std::optional<History::Step> made; ///< that step
        std::weak_ptr<MCPSession> session;
    };

    /// Adds an entry; beyond the most that are kept the oldest goes.
    void add(Entry entry);
    const std::deque<Entry>& entries() const { return all; }

    /// The arguments of a call in a few words: "V2, 3 cuts".
    static std::string brief(const nlohmann::json& arguments);

    /// The first three lines of an answer that hold something.
    static std::string firstLines(const std::string& text);

    /// Whether both are the same undo step.
    static bool same(const History::Step& one, const History::Step& other);

private:
    std::deque<Entry> all;
};

}
