#include "core/mcp/MCPArguments.h"

#include "platform/base/Problem.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::MCPArguments {

namespace {

using nlohmann::json;
using Type = MCPTool::Param::Type;

const char* withArticle(Type type) {
    switch (type) {
        case Type::text:
            return "a string";
        case Type::number:
            return "a number";
        case Type::array:
            return "an array";
    }
    return "";
}

bool fits(const json& value, Type type) {
    switch (type) {
        case Type::text:
            return value.is_string();
        case Type::number:
            return value.is_number() || value.is_string();
        case Type::array:
            return value.is_array();
    }
    return false;
}

std::string example(const MCPTool& tool) {
    return fmt::format("For example: {} {}", tool.name, tool.example);
}

void checkSizes(const MCPTool& tool, std::string_view name, const json& value) {
    const bool isPlaybook = tool.id == MCPTool::ToolID::writePlaybook;
    if (value.is_string() && !isPlaybook && value.get_ref<const std::string&>().size() > maxTextBytes)
        throw Problem(fmt::format("“{}” is too long: at most {} bytes.", name, maxTextBytes));
    if (!value.is_structured()) return;
    if (value.size() > maxEntries)
        throw Problem(fmt::format("“{}” holds too much: at most {} entries.", name, maxEntries));
    for (const auto& one : value) checkSizes(tool, name, one);
}

}

void check(const MCPTool& tool, const json& arguments) {
    for (const auto& param : tool.params) {
        const auto found = arguments.find(param.name);
        const bool isThere = found != arguments.end() && !found->is_null();
        if (isThere) checkSizes(tool, param.name, *found);
        if (param.hasOwnWords || (isThere ? fits(*found, param.type) : !param.required)) continue;
        throw Problem(fmt::format("{} needs “{}”, {}: {}. {}", tool.name, param.name, withArticle(param.type),
                                  param.about, example(tool)));
    }
}

}
