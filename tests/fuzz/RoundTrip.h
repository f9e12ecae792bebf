#pragma once

#include "platform/base/Codec.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace murbo {

/// Ends the process where what must hold does not; a fuzzer then keeps the input.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// Reads a record from any bytes. One that can be read must be written and read again as the same value and
/// the same bytes. Nothing where the bytes are no such record.
template <class T>
std::optional<T> roundTrip(const std::uint8_t* bytes, std::size_t size) {
    std::optional<T> record;
    try {
        record = Codec::decode<T>({reinterpret_cast<const char*>(bytes), size});
    } catch (const Problem&) {
        return std::nullopt;
    }
    const auto written = Codec::encode(*record);
    const auto again = Codec::decode<T>(written);
    require(again == *record, "read again, the record differs");
    require(Codec::encode(again) == written, "written again, the bytes differ");
    require(Codec::decode<T>(Codec::encode(*record, JsonWriter::Layout::compact)) == *record,
            "the compact form differs");
    return record;
}

}
