#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "app/editor/commands/Kind.h"

#include <array>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace murbo {

/// Makes the rows of the command tables: `row<Kind::Cut, Kind::Seconds>("blade", "Blade", {"cut", "at"},
/// run)` reads two arguments of those kinds and calls `run(editor, cut, at)`. What `run` gives back is JSON
/// text.
namespace Row {

/// Throws a Problem where the line has more arguments than the command takes.
void checkCount(const JsonValue& line, std::size_t expected);

template <class K>
inline constexpr bool isMaybe = false;
template <class K>
inline constexpr bool isMaybe<Kind::Maybe<K>> = true;

/// Reads the argument at a place of the line, which starts with the command's name.
template <class K>
typename K::Value read(const Editor& editor, const JsonValue& line, std::size_t at, const std::string& name) {
    const bool given = at < line.size() && !line.element(at).isNull();
    if constexpr (isMaybe<K>) {
        if (!given) return std::nullopt;
    }
    if (!given) throw Problem("“" + name + "” is missing: " + K::words() + ".");
    try {
        return K::read(line.element(at), editor);
    } catch (const Problem& problem) {
        throw Problem("“" + name + "” is not right: " + problem.message());
    }
}

}

template <class... Kinds, class Run>
EditorCommand row(const std::string& name, const std::string& title,
                  const std::array<const char*, sizeof...(Kinds)>& names, Run run) {
    EditorCommand command{name, title, {}, {}};
    std::size_t next = 0;
    (command.arguments.push_back({names[next++], Kinds::words(), Row::isMaybe<Kinds>}), ...);
    command.run = [run, names](Editor& editor, const JsonValue& line) -> std::optional<std::string> {
        Row::checkCount(line, sizeof...(Kinds));
        return [&]<std::size_t... At>(std::index_sequence<At...>)->std::optional<std::string> {
            // Braces: from left to right, so that the first fault is the one reported.
            std::tuple<typename Kinds::Value...> values{Row::read<Kinds>(editor, line, At + 1, names[At])...};
            if constexpr (std::is_void_v<decltype(run(editor, std::move(std::get<At>(values))...))>) {
                run(editor, std::move(std::get<At>(values))...);
                return std::nullopt;
            } else {
                return run(editor, std::move(std::get<At>(values))...);
            }
        }
        (std::index_sequence_for<Kinds...>());
    };
    return command;
}

}
