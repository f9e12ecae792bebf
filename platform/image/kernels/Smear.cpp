#include "platform/image/kernels/Kernels.h"

#include <algorithm>

namespace murbo::Kernels {

void smearRow(const std::uint8_t* in, int count, int reach, std::uint8_t* out) {
    const int whole = (reach - 32) / 64;
    const int part = (reach - 32) % 64;
    const unsigned share = (1u << 24) / unsigned(2 * reach);
    const auto pixel = [&](int at, int channel) {
        return unsigned(in[std::clamp(at, 0, count - 1) * 4 + channel]);
    };
    for (int channel = 0; channel < 4; ++channel) {
        unsigned sum = 0;
        for (int at = -whole; at <= whole; ++at) sum += pixel(at, channel);
        for (int at = 0; at < count; ++at) {
            const unsigned ends = pixel(at - whole - 1, channel) + pixel(at + whole + 1, channel);
            out[at * 4 + channel] = std::uint8_t(((sum * 64 + ends * part) * share + (1u << 23)) >> 24);
            sum += pixel(at + whole + 1, channel) - pixel(at - whole, channel);
        }
    }
}

}
