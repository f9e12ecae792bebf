#include "platform/base/Text.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

namespace murbo::Text {
namespace {

icu::UnicodeString unicode(std::string_view text) {
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    return text.toUTF8String(result);
}

template <class Goes>
std::string trimmedWhere(std::string_view text, Goes goes) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::int32_t from = 0;
    auto to = static_cast<std::int32_t>(text.size());
    while (from < to) {
        std::int32_t next = from;
        UChar32 c;
        U8_NEXT(bytes, next, to, c);
        if (c < 0 || !goes(c)) break;
        from = next;
    }
    while (to > from) {
        std::int32_t before = to;
        UChar32 c;
        U8_PREV(bytes, from, before, c);
        if (c < 0 || !goes(c)) break;
        to = before;
    }
    return std::string(text.substr(from, to - from));
}

}

std::string trimmedOfBlanks(std::string_view text) {
    return trimmedWhere(text, [](UChar32 c) { return u_isblank(c); });
}

std::string trimmed(std::string_view text) {
    return trimmedWhere(text, [](UChar32 c) { return u_isUWhiteSpace(c); });
}

std::string withoutWhiteSpace(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::string result;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t from = at;
        UChar32 c;
        U8_NEXT(bytes, at, text.size(), c);
        if (c < 0 || !u_isUWhiteSpace(c)) result += text.substr(from, at - from);
    }
    return result;
}

std::string beginning(std::string_view text, std::size_t max) {
    if (text.size() <= max) return std::string(text);
    while (max > 0 && (static_cast<unsigned char>(text[max]) & 0xC0) == 0x80) --max;
    return std::string(text.substr(0, max));
}

std::string lowercased(std::string_view text) {
    return utf8(unicode(text).toLower(icu::Locale::getRoot()));
}

bool sameIgnoringCase(std::string_view one, std::string_view other) {
    return unicode(one).caseCompare(unicode(other), U_FOLD_CASE_DEFAULT) == 0;
}

bool isUtf8(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t at = 0;
    while (at < text.size()) {
        UChar32 c;
        U8_NEXT(bytes, at, text.size(), c);
        if (c < 0) return false;
    }
    return true;
}

std::string repaired(std::string_view text) {
    return isUtf8(text) ? std::string(text) : utf8(unicode(text));
}

}
