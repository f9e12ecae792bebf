#pragma once

#include "app/editor/commands/Named.h"
#include "core/playbooks/Book.h"
#include "platform/base/Codec.h"
#include "platform/base/Problem.h"
#include "platform/base/RawText.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace murbo {

/// The kinds of argument that commands take. Each has the type of its value, words for its readers, and reads
/// one JSON value strictly: what does not fit is a Problem, and a name must name something that is there.
namespace Kind {

/// A text that says something.
struct Text {
    using Value = std::string;
    static std::string words() { return "text"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

/// A text that may be empty.
struct AnyText {
    using Value = std::string;
    static std::string words() { return "text, may be empty"; }
    static Value read(const JsonValue& value, const Editor&) { return value.text(); }
};

struct Flag {
    using Value = bool;
    static std::string words() { return "true or false"; }
    static Value read(const JsonValue& value, const Editor&) { return value.boolean(); }
};

struct Number {
    using Value = double;
    static std::string words() { return "number"; }
    static Value read(const JsonValue& value, const Editor&) { return value.number(); }
};

struct Whole {
    using Value = std::int64_t;
    static std::string words() { return "whole number"; }
    static Value read(const JsonValue& value, const Editor&) { return value.integer(); }
};

/// A time. Beyond thirty years to either side it is as good as thirty years, so that sums stay numbers.
struct Seconds {
    using Value = double;
    static std::string words() { return "seconds"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

/// From one time to a later one: [a, b].
struct TimeSpan {
    using Value = Stretch;
    static std::string words() { return "[seconds, seconds]"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

struct VideoTag {
    using Value = UUID;
    static std::string words() { return "a video's tag"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

struct ClipTag {
    using Value = UUID;
    static std::string words() { return "a clip's tag"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

struct BookmarkTag {
    using Value = UUID;
    static std::string words() { return "a bookmark's tag"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

struct IdeaNumber {
    using Value = UUID;
    static std::string words() { return "\"idea 1\", or an id"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

struct SourceName {
    using Value = UUID;
    static std::string words() { return "a source's file name"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

struct LineTag {
    using Value = Named::FoundLine;
    static std::string words() { return "a line's tag"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

/// A block of a video: `kind` says of which sort.
template <Pick::Kind kind>
struct BlockOf {
    using Value = UUID;
    static std::string words();
    static Value read(const JsonValue& value, const Editor& editor);
};
using Cut = BlockOf<Pick::Kind::cut>;
using Shot = BlockOf<Pick::Kind::shot>;
using Overlay = BlockOf<Pick::Kind::overlay>;
using Sound = BlockOf<Pick::Kind::sound>; ///< or a song

struct AnyBlock {
    using Value = UUID;
    static std::string words() { return "a cut, shot, overlay, sound or song"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

struct PlaybookID {
    using Value = Book;
    static std::string words() { return "a playbook's id"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

/// A path of this machine; a relative one counts from the folder that the program was started in.
struct File {
    using Value = std::filesystem::path;
    static std::string words() { return "a file's path"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

struct TimelinePick {
    using Value = Pick;
    static std::string words() {
        return R"(["cut" | "shot" | "overlay" | "sound" | "music" | "caption", name])";
    }
    static Value read(const JsonValue& value, const Editor& editor);
};

/// A cut given whole, by its JSON record.
struct CutRecord {
    using Value = murbo::Cut;
    static std::string words() { return "a cut's record"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

/// A caption style given whole, by its JSON record.
struct StyleRecord {
    using Value = CaptionStyle;
    static std::string words() { return "a caption style's record"; }
    static Value read(const JsonValue& value, const Editor& editor);
};

template <class Enum>
struct OneOf {
    using Value = Enum;
    static std::string words() {
        std::string words;
        for (const auto text : rawTexts(Enum{}))
            words.append(words.empty() ? "\"" : " | \"").append(text).append("\"");
        return words;
    }
    static Value read(const JsonValue& value, const Editor&) {
        const auto read = fromRawText<Enum>(value.text());
        if (!read) throw Problem("it is one of " + words() + ".");
        return *read;
    }
};

template <class Inner>
struct ListOf {
    using Value = std::vector<typename Inner::Value>;
    static std::string words() { return "a list: " + Inner::words(); }
    static Value read(const JsonValue& value, const Editor& editor) {
        Value list;
        for (std::size_t at = 0; at < value.size(); ++at)
            list.push_back(Inner::read(value.element(at), editor));
        return list;
    }
};

/// One that may be left out at the end, or null.
template <class Inner>
struct Maybe {
    using Value = std::optional<typename Inner::Value>;
    static std::string words() { return Inner::words(); }
    static Value read(const JsonValue& value, const Editor& editor) { return Inner::read(value, editor); }
};

/// Fields of a record to set, by their JSON names; null clears one. All are read before any is set. The
/// record keeps its identity.
template <class Record>
struct Fields {
    using Value = std::function<void(Record&)>;
    static std::string words() { return "an object of fields to set"; }
    static Value read(const JsonValue& value, const Editor&) {
        std::vector<Value> setters;
        for (const auto name : value.names()) {
            Value setter;
            Record::fields(
                [&](const auto&... field) { (note(setter, field, name, *value.member(name)), ...); });
            if (!setter) throw Problem("there is no field “" + std::string(name) + "” to set.");
            setters.push_back(std::move(setter));
        }
        return [setters](Record& record) {
            for (const auto& setter : setters) setter(record);
        };
    }

private:
    template <class T>
    static void note(Value& setter, const Field<Record, T>& field, std::string_view name,
                     const JsonValue& value) {
        if (name != field.name || name == "id") return;
        if (value.isNull()) {
            static const Record fresh{};
            if (!Codec::detail::is<T, std::optional> && !Codec::detail::Lenient<Record>)
                throw Problem("“" + std::string(name) + "” needs a value.");
            setter = [member = field.member](Record& record) { record.*member = fresh.*member; };
            return;
        }
        setter = [member = field.member, read = Codec::read<T>(value)](Record& record) {
            record.*member = read;
        };
    }
};

}

}
