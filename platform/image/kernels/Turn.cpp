#include "platform/image/kernels/Kernels.h"

#include <algorithm>

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Turn.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Vectors-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

/// Positions run in 32 bits, 15 of them fraction, from one mark to the next; each mark is worked out anew, so
/// that no error adds up.
constexpr int marks = 64;
constexpr int fraction = 15;

/// Held near enough to the texture to be counted in 32 bits.
int held(std::int64_t position, int length) {
    const std::int64_t beyond = std::int64_t(16384) << Line::bits;
    const std::int64_t farthest = std::int64_t(length + 8192) << Line::bits;
    return int(std::clamp(position, -beyond, farthest) >> (Line::bits - fraction));
}

/// Every other byte of pixels as 15-bit values, and steps between such.
template <typename D>
struct Values {
    using Words = hn::Repartition<std::int16_t, D>;
    using V = hn::VFromD<Words>;

    static HWY_INLINE V even(hn::VFromD<D> pixels) {
        return hn::BitCast(Words(), hn::ShiftLeft<7>(hn::And(pixels, hn::Set(D(), 0x00FF00FF))));
    }
    static HWY_INLINE V odd(hn::VFromD<D> pixels) {
        return hn::BitCast(Words(), hn::And(hn::ShiftRight<1>(pixels), hn::Set(D(), 0x7F807F80)));
    }
    static HWY_INLINE V between(V one, V other, V share) {
        return hn::Add(one, hn::MulFixedPoint15(hn::Sub(other, one), share));
    }
    static HWY_INLINE V rounded(V value) { return hn::ShiftRight<7>(hn::Add(value, hn::Set(Words(), 64))); }
};

template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V look(D d, const Texture& texture, V u, V v) {
    const hn::RebindToUnsigned<D> whole;
    using Halves = Values<hn::RebindToUnsigned<D>>;
    const auto clamped = [&](V index, int length) {
        return hn::Min(hn::Max(index, hn::Zero(d)), hn::Set(d, length - 1));
    };
    const auto share = [&](V position) {
        const auto part = hn::And(position, hn::Set(d, 32767));
        return hn::BitCast(typename Halves::Words(), hn::Or(part, hn::ShiftLeft<16>(part)));
    };
    const V one = hn::Set(d, 1);
    const V x = hn::ShiftRight<fraction>(u);
    const V y = hn::ShiftRight<fraction>(v);
    const V stride = hn::Set(d, int(texture.stride / 4));
    const V left = clamped(x, texture.width);
    const V right = clamped(hn::Add(x, one), texture.width);
    const V upper = hn::Mul(clamped(y, texture.height), stride);
    const V lower = hn::Mul(clamped(hn::Add(y, one), texture.height), stride);
    const auto pixel = [&](V row, V column) {
        const auto* pixels = reinterpret_cast<const std::int32_t*>(texture.pixels);
        return hn::BitCast(whole, hn::GatherIndex(d, pixels, hn::Add(row, column)));
    };
    const auto a = pixel(upper, left);
    const auto b = pixel(upper, right);
    const auto c = pixel(lower, left);
    const auto e = pixel(lower, right);
    const auto across = share(u);
    const auto down = share(v);
    const auto mixed = [&](auto leftAbove, auto rightAbove, auto leftBelow, auto rightBelow) {
        const auto above = Halves::between(leftAbove, rightAbove, across);
        const auto below = Halves::between(leftBelow, rightBelow, across);
        return hn::BitCast(d, Halves::rounded(Halves::between(above, below, down)));
    };
    const auto even = mixed(Halves::even(a), Halves::even(b), Halves::even(c), Halves::even(e));
    const auto odd = mixed(Halves::odd(a), Halves::odd(b), Halves::odd(c), Halves::odd(e));
    return hn::Or(even, hn::ShiftLeft<8>(odd));
}

void TurnRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out) {
    const int stepU = int(u.step >> (Line::bits - fraction));
    const int stepV = int(v.step >> (Line::bits - fraction));
    for (int at = from; at < to;) {
        const int mark = at & ~(marks - 1);
        const int end = std::min(to, mark + marks);
        const int startU = held(u.at(mark), texture.width);
        const int startV = held(v.at(mark), texture.height);
        inVectors<std::int32_t>(end - at, [&](auto d, int lane) {
            const auto along = hn::Iota(d, at - mark + lane);
            const auto position = [&](int start, int step) {
                return hn::Add(hn::Set(d, start), hn::Mul(along, hn::Set(d, step)));
            };
            const auto pixels = look(d, texture, position(startU, stepU), position(startV, stepV));
            hn::StoreU(pixels, d, reinterpret_cast<std::int32_t*>(out) + lane);
        });
        out += std::ptrdiff_t(end - at) * 4;
        at = end;
    }
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(TurnRow);

void turnRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out) {
    HWY_DYNAMIC_DISPATCH(TurnRow)(texture, u, v, from, to, out);
}

}
#endif
