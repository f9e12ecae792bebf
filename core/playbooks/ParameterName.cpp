#include "core/playbooks/ParameterName.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace murbo {
namespace {

bool belongs(UChar32 c) {
    constexpr auto marks = U_GC_M_MASK; // vowels and tones of many scripts stand as marks on their letters
    return c >= 0 && (u_isalnum(c) || c == '_' || (U_GET_GC_MASK(c) & marks) != 0);
}

}

std::size_t ParameterName::length(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t end = 0;
    for (std::size_t at = 0; at < text.size(); end = at) {
        UChar32 c;
        U8_NEXT(bytes, at, text.size(), c);
        if (!belongs(c)) break;
    }
    return end;
}

}
