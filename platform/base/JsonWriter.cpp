#include "platform/base/JsonWriter.h"

#include "platform/base/Json.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <array>
#include <charconv>
#include <cmath>

#include <fmt/format.h>

namespace murbo {
namespace {

constexpr std::size_t indent = 2;

/// What a character needs in a JSON text (RFC 8259, section 7); nothing for most.
std::string escape(char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            return fmt::format("\\u{:04x}", static_cast<unsigned char>(c));
    }
}

bool needsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

}

void JsonWriter::key(std::string_view name) {
    auto& level = levels.back();
    if (level.count++ > 0) out += ',';
    level.key = name;
    newLine();
    quoted(name);
    out += layout == Layout::pretty ? ": " : ":";
}

void JsonWriter::integer(std::int64_t value) {
    raw(fmt::format_int(value).c_str());
}

void JsonWriter::number(double value) {
    if (!std::isfinite(value)) fail("this number is not finite");
    std::array<char, 32> digits;
    // Equal records shall be equal bytes, and -0 equals 0.
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value == 0 ? 0.0 : value).ptr;
    raw({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

void JsonWriter::text(std::string_view value) {
    if (!Text::isUtf8(value)) fail("this text is not UTF-8");
    beforeValue();
    quoted(value);
}

std::string JsonWriter::finish() {
    if (layout == Layout::pretty) out += '\n';
    return std::move(out);
}

void JsonWriter::open(char bracket) {
    beforeValue();
    ++values;
    out += bracket;
    levels.push_back({bracket == '{'});
}

void JsonWriter::close(char bracket) {
    const bool empty = levels.back().count == 0;
    levels.pop_back();
    if (!empty) newLine();
    out += bracket;
}

/// A member's value stands after its key; an element on a line of its own.
void JsonWriter::beforeValue() {
    if (++values >= Json::maxValues) fail("there are too many values");
    if (levels.empty() || levels.back().isObject) return;
    if (levels.back().count++ > 0) out += ',';
    newLine();
}

void JsonWriter::newLine() {
    if (layout == Layout::compact) return;
    out += '\n';
    out.append(levels.size() * indent, ' ');
}

void JsonWriter::raw(std::string_view value) {
    beforeValue();
    out += value;
}

void JsonWriter::quoted(std::string_view value) {
    out += '"';
    std::size_t written = 0;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (!needsEscape(value[at])) continue;
        out += value.substr(written, at - written);
        out += escape(value[at]);
        written = at + 1;
    }
    out += value.substr(written);
    out += '"';
}

void JsonWriter::fail(std::string_view what) const {
    std::string path;
    for (const auto& level : levels) {
        if (level.isObject && !path.empty()) path += '.';
        path += level.isObject ? std::string(level.key) : fmt::format("[{}]", level.count);
    }
    throw Problem(fmt::format("{}: {}", path, what));
}

}
