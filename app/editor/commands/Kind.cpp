#include "app/editor/commands/Kind.h"

#include "app/options/Paths.h"
#include "core/playbooks/Playbooks.h"
#include "platform/base/Text.h"

#include <algorithm>

namespace murbo::Kind {
namespace {

constexpr double farthest = 1e9; // seconds

/// What a text names, or a Problem.
template <class Find>
auto found(const JsonValue& value, const std::string& what, Find find) {
    const auto name = Text::Value(value.text());
    auto named = find(name);
    if (!named)
        throw Problem("“" + murbo::Text::beginning(name, 100) + "” is not " + what + " of this project.");
    return std::move(*named);
}

/// What a name of a block is to name: "an overlay".
std::string blockOf(Pick::Kind kind) {
    if (kind == Pick::Kind::overlay) return "an overlay";
    return kind == Pick::Kind::music ? "a song" : "a " + std::string(rawText(kind));
}

}

std::string Text::read(const JsonValue& value, const Editor&) {
    if (murbo::Text::trimmed(value.text()).empty()) throw Problem("it must not be blank.");
    return value.text();
}

double Seconds::read(const JsonValue& value, const Editor&) {
    return std::clamp(value.number(), -farthest, farthest);
}

Stretch TimeSpan::read(const JsonValue& value, const Editor& editor) {
    if (value.size() != 2) throw Problem("two times are expected.");
    const Stretch read{Seconds::read(value.element(0), editor), Seconds::read(value.element(1), editor)};
    if (read.to < read.from) throw Problem("its end is before its start.");
    return read;
}

UUID VideoTag::read(const JsonValue& value, const Editor& editor) {
    return found(value, "a video", [&](const auto& name) { return Named::video(editor, name); });
}

UUID ClipTag::read(const JsonValue& value, const Editor& editor) {
    return found(value, "a clip", [&](const auto& name) { return Named::clip(editor, name); });
}

UUID BookmarkTag::read(const JsonValue& value, const Editor& editor) {
    return found(value, "a bookmark", [&](const auto& name) { return Named::bookmark(editor, name); });
}

UUID IdeaNumber::read(const JsonValue& value, const Editor& editor) {
    return found(value, "an idea", [&](const auto& name) { return Named::idea(editor, name); });
}

UUID SourceName::read(const JsonValue& value, const Editor& editor) {
    return found(value, "a source", [&](const auto& name) { return Named::source(editor, name); });
}

Named::FoundLine LineTag::read(const JsonValue& value, const Editor& editor) {
    return found(value, "a line", [&](const auto& name) { return Named::line(editor, name); });
}

template <Pick::Kind kind>
std::string BlockOf<kind>::words() {
    const std::string word(rawText(kind));
    const std::string song = kind == Pick::Kind::sound ? " | \"song 1\"" : "";
    return "\"" + word + " 1\"" + song + ", or an id";
}

template <Pick::Kind kind>
UUID BlockOf<kind>::read(const JsonValue& value, const Editor& editor) {
    return found(value, blockOf(kind), [&](const auto& name) { return Named::block(editor, kind, name); });
}

template struct BlockOf<Pick::Kind::cut>;
template struct BlockOf<Pick::Kind::shot>;
template struct BlockOf<Pick::Kind::overlay>;
template struct BlockOf<Pick::Kind::sound>;

UUID AnyBlock::read(const JsonValue& value, const Editor& editor) {
    return found(value, "a block", [&](const auto& name) { return Named::anyBlock(editor, name); });
}

Book PlaybookID::read(const JsonValue& value, const Editor&) {
    auto book = Playbooks::find(Text::Value(value.text()));
    if (!book)
        throw Problem("“" + murbo::Text::beginning(value.text(), 100) + "” is no playbook of the library.");
    return std::move(*book);
}

std::filesystem::path File::read(const JsonValue& value, const Editor& editor) {
    const auto text = Text::read(value, editor);
    if (text.find('\0') != text.npos) throw Problem("that is no path.");
    return Paths::absolute(text);
}

Pick TimelinePick::read(const JsonValue& value, const Editor& editor) {
    if (value.size() < 2 || value.size() > 3) throw Problem("a kind and a name are expected.");
    const auto kind = OneOf<Pick::Kind>::read(value.element(0), editor);
    const bool isCaption = kind == Pick::Kind::caption;
    if (value.size() == 3 && !isCaption) throw Problem("only a caption has pieces.");
    if (isCaption) {
        Pick pick{kind, LineTag::read(value.element(1), editor).line.id, {}};
        if (value.size() == 3 && !value.element(2).isNull()) pick.piece = value.element(2).integer();
        if (pick.piece.value_or(0) < 0) throw Problem("a piece counts from 0.");
        return pick;
    }
    return {kind,
            found(value.element(1), blockOf(kind),
                  [&](const auto& name) { return Named::block(editor, kind, name); }),
            {}};
}

murbo::Cut CutRecord::read(const JsonValue& value, const Editor& editor) {
    auto cut = Codec::read<murbo::Cut>(value);
    if (!(cut.end > cut.start) || std::abs(cut.start) > farthest || std::abs(cut.end) > farthest)
        throw Problem("a cut runs from its start to a later end.");
    if (!cut.generator && !editor.project().source(cut.source))
        throw Problem("the cut's source is not in this project.");
    return cut;
}

CaptionStyle StyleRecord::read(const JsonValue& value, const Editor&) {
    if (!value.isObject()) throw Problem("an object is expected.");
    return Codec::read<CaptionStyle>(value);
}

}
