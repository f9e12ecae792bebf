#include "platform/image/kernels/Columns.h"

#include <algorithm>
#include <cstdlib>

namespace murbo::Kernels {
namespace {

/// Up to this step eight outputs read at most sixteen samples: what one pair of registers holds.
constexpr std::int64_t narrowStep = Line::one * 7 / 4;

/// Where the bytes of eight samples lie from the first one's on.
void placeSamples(const Taps::Output* outputs, int count, Columns::Group& group) {
    int first = outputs[0].first;
    for (int at = 1; at < count; ++at) first = std::min(first, outputs[at].first);
    group.first[0] = first;
    for (int at = 0; at < 8; ++at) {
        const int sample = at < count ? outputs[at].first - first : 0;
        group.bytes[2 * at] = std::uint8_t(2 * sample);
        group.bytes[2 * at + 1] = std::uint8_t(2 * sample + 1);
    }
}

}

Columns::Columns(const Line& line, int from, int to, int lowest, int highest, int valuesOfOne)
    : values(valuesOfOne) {
    const bool few = std::abs(line.step) <= narrowStep;
    taps = Taps::along(line, from, to, lowest, highest, few ? Taps::Sum::differences : Taps::Sum::products);
    pairs = taps.maxCount <= 2;
    if (!few) return;
    const int count = int(taps.outputs.size());
    for (int start = 0; start < count; start += together())
        addGroup(&taps.outputs[start], std::min(together(), count - start));
}

void Columns::addGroup(const Taps::Output* outputs, int count) {
    Group group{};
    if (values == 1) placeSamples(outputs, count, group);
    near = near && *std::max_element(group.bytes, group.bytes + 16) < (pairs ? 14 : 12);
    for (int at = 0; at < count; ++at) {
        if (values == 4) group.first[at] = outputs[at].first;
        for (int lane = at * 8 / together(); lane < (at + 1) * 8 / together(); ++lane) {
            const auto* weights = &taps.weights[outputs[at].weights];
            if (outputs[at].count > 1) group.second[lane] = weights[1];
            if (outputs[at].count > 2) group.third[lane] = weights[2];
        }
    }
    if (values == 4 && count == 1) group.first[1] = group.first[0];
    groups.push_back(group);
}

}
