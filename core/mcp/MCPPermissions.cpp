#include "core/mcp/MCPPermissions.h"

#include "platform/base/Codec.h"
#include "platform/base/Problem.h"

#include <algorithm>

namespace murbo {

namespace {

using Permission = MCPPermissions::Permission;
using Preset = MCPPermissions::Preset;
using Kind = MCPTool::Kind;

constexpr std::chrono::minutes grant{10};
constexpr std::array presets{Preset::recommended, Preset::askBeforeChanges, Preset::readOnly,
                             Preset::allowAll};

struct Stored {
    std::map<std::string, Permission> changed;
    std::optional<Preset> chosen;

    static constexpr auto fields(auto visit) {
        return visit(field("changed", &Stored::changed), field("chosen", &Stored::chosen));
    }
};

Permission standard(const MCPTool& tool) {
    return tool.kind == Kind::library ? Permission::ask : Permission::allow;
}

Permission given(Preset preset, const MCPTool& tool) {
    if (tool.kind == Kind::read || preset == Preset::allowAll) return Permission::allow;
    switch (preset) {
        case Preset::askBeforeChanges:
            return Permission::ask;
        case Preset::readOnly:
            return Permission::off;
        default:
            return standard(tool);
    }
}

}

Permission MCPPermissions::permission(const MCPTool& tool) const {
    const auto found = changed.find(std::string(tool.name));
    return found == changed.end() ? standard(tool) : found->second;
}

void MCPPermissions::set(Permission permission, const MCPTool& tool) {
    if (permission == standard(tool)) {
        changed.erase(std::string(tool.name));
    } else {
        changed[std::string(tool.name)] = permission;
    }
}

void MCPPermissions::use(Preset preset) {
    changed.clear();
    for (const auto& tool : MCPTool::all()) set(given(preset, tool), tool);
    chosen = preset;
}

std::optional<Preset> MCPPermissions::preset() const {
    const auto holds = [&](Preset preset) {
        return std::ranges::all_of(
            MCPTool::all(), [&](const MCPTool& tool) { return permission(tool) == given(preset, tool); });
    };
    if (chosen && holds(*chosen)) return chosen;
    const auto found = std::ranges::find_if(presets, holds);
    return found == presets.end() ? std::nullopt : std::optional(*found);
}

MCPPermissions::Decision MCPPermissions::decide(const MCPTool& tool, Date now) const {
    switch (permission(tool)) {
        case Permission::allow:
            return Decision::run;
        case Permission::off:
            return Decision::refuse;
        case Permission::ask:
            break;
    }
    const auto until = allowedUntil.find(std::string(tool.name));
    return until != allowedUntil.end() && until->second > now ? Decision::run : Decision::ask;
}

void MCPPermissions::allowForTenMinutes(const MCPTool& tool, Date now) {
    allowedUntil[std::string(tool.name)] = now + grant;
}

std::string MCPPermissions::stored() const {
    return Codec::encode(Stored{changed, chosen}, JsonWriter::Layout::compact);
}

MCPPermissions MCPPermissions::read(std::string_view json) try {
    auto stored = Codec::decode<Stored>(json);
    return {.changed = std::move(stored.changed), .chosen = stored.chosen};
} catch (const Problem&) {
    return {};
}

std::string_view MCPPermissions::title(Preset preset) {
    switch (preset) {
        case Preset::recommended:
            return "Recommended";
        case Preset::askBeforeChanges:
            return "Ask Before Changes";
        case Preset::readOnly:
            return "Read Only";
        case Preset::allowAll:
            return "Allow All";
    }
    return "";
}

}
