#pragma once

#include "app/editor/Editor.h"
#include "platform/base/Json.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// One command that a person can give, as scripts, menus, keys and screen readers find it. Each stands once,
/// in the table of its subject.
struct EditorCommand {
    struct Argument {
        std::string name;
        std::string kind;      ///< in words: "seconds", "a clip's tag"
        bool optional = false; ///< may be left out at the end, or null
    };

    std::string name;  ///< "splitAtPlayhead"
    std::string title; ///< "Split at the Playhead"
    std::vector<Argument> arguments;

    /// Carries it out with the arguments, the elements of a list from its second on, and gives the JSON of
    /// what it reads, where it reads. Throws a Problem, with nothing done, where an argument is not of its
    /// kind.
    std::function<std::optional<std::string>(Editor&, const JsonValue& list)> run;

    /// Whether there is anything for it to act on now.
    std::function<bool(const Editor&)> possible = [](const Editor&) { return true; };

    /// Itself, possible under a condition.
    EditorCommand when(std::function<bool(const Editor&)> condition) && {
        possible = std::move(condition);
        return std::move(*this);
    }
};

using CommandList = std::vector<EditorCommand>;

}
