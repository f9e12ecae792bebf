#pragma once

#include "core/mcp/MCPTool.h"
#include "platform/base/Dates.h"

#include <map>
#include <optional>
#include <string>

namespace murbo {

/// What a connected AI app may do: the owner's say, tool by tool, with presets over it.
struct MCPPermissions {
    enum class Permission { allow, ask, off };
    enum class Decision { run, ask, refuse };
    enum class Preset { recommended, askBeforeChanges, readOnly, allowAll };

    std::map<std::string, Permission> changed; ///< by tool, only what differs from the tool's default
    std::optional<Preset> chosen;              ///< the preset last picked
    std::map<std::string, Date> allowedUntil;  ///< ten-minute grants; never stored

    Permission permission(const MCPTool& tool) const;
    void set(Permission permission, const MCPTool& tool);
    void use(Preset preset);

    /// The preset that the permissions stand for; nothing where they are the owner's own mixture.
    std::optional<Preset> preset() const;

    Decision decide(const MCPTool& tool, Date now) const;

    /// Lets a tool that would ask run for ten minutes. Never lifts an `off`.
    void allowForTenMinutes(const MCPTool& tool, Date now);

    /// As JSON, without the grants.
    std::string stored() const;
    /// Reads that JSON; what can't be read as a whole is nobody's choice.
    static MCPPermissions read(std::string_view json);

    /// The preset's name for the owner: "Ask Before Changes".
    static std::string_view title(Preset preset);

    bool operator==(const MCPPermissions&) const = default;
};
constexpr auto rawTexts(MCPPermissions::Permission) {
    return std::array<std::string_view, 3>{"allow", "ask", "off"};
}
constexpr auto rawTexts(MCPPermissions::Preset) {
    return std::array<std::string_view, 4>{"recommended", "askBeforeChanges", "readOnly", "allowAll"};
}

}
