#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <climits>
#include <cstring>

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/AffineRow.cpp"
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

/// Kept near enough to the texture to be counted in 32 bits.
int clampedTo(std::int64_t position, int length) {
    const std::int64_t beyond = std::int64_t(16384) << Line::bits;
    const std::int64_t farthest = std::int64_t(length + 8192) << Line::bits;
    return int(std::clamp(position, -beyond, farthest) >> (Line::bits - fraction));
}

/// Every other byte of pixels as 15-bit values, and steps between such.
template <typename D>
struct HalfLevels {
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

/// The pixels round each place.
template <typename V>
struct Neighbours {
    V upperLeft, upperRight, lowerLeft, lowerRight;
};

/// Two pixels that lie side by side, for each of the places in turn: left ones, then right ones.
template <typename D, typename Take>
HWY_INLINE void inPairs(D d, const std::uint8_t* pixels, const std::uint32_t* places, const Take& take) {
    constexpr int lanes = int(hn::MaxLanes(D()));
    const auto pair = [&](int lane) {
        const auto* at = pixels + std::size_t(places[lane]) * 4;
        return hn::LoadU(hn::FixedTag<std::uint64_t, 1>(), reinterpret_cast<const std::uint64_t*>(at));
    };
    const auto two = [&](int lane) {
        return hn::Combine(hn::FixedTag<std::uint64_t, 2>(), pair(lane + 1), pair(lane));
    };
    const auto half = [&](int lane) {
        if constexpr (lanes == 4)
            return hn::BitCast(d, two(lane));
        else
            return hn::BitCast(d, hn::Combine(hn::Repartition<std::uint64_t, D>(), two(lane + 2), two(lane)));
    };
    const auto first = half(0);
    const auto last = half(lanes / 2);
    take(hn::ConcatEven(d, last, first), hn::ConcatOdd(d, last, first));
}

/// Loading two at a time is faster than gathering each.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE auto neighbours(D d, const Texture& texture, V x, V upper, V lower) {
    const hn::RebindToUnsigned<D> whole;
    const V stride = hn::Set(d, int(texture.stride / 4));
    std::uint32_t places[hn::MaxLanes(D())];
    Neighbours<hn::VFromD<decltype(whole)>> found;
    hn::StoreU(hn::BitCast(whole, hn::Add(hn::Mul(upper, stride), x)), whole, places);
    inPairs(whole, texture.pixels, places, [&](auto left, auto right) {
        found.upperLeft = left;
        found.upperRight = right;
    });
    hn::StoreU(hn::BitCast(whole, hn::Add(hn::Mul(lower, stride), x)), whole, places);
    inPairs(whole, texture.pixels, places, [&](auto left, auto right) {
        found.lowerLeft = left;
        found.lowerRight = right;
    });
    return found;
}

/// The same of places inside the texture.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE auto innerNeighbours(D d, const Texture& texture, V x, V y) {
    const hn::RebindToUnsigned<D> whole;
    std::uint32_t places[hn::MaxLanes(D())];
    Neighbours<hn::VFromD<decltype(whole)>> found;
    const V stride = hn::Set(d, int(texture.stride / 4));
    hn::StoreU(hn::BitCast(whole, hn::Add(hn::Mul(y, stride), x)), whole, places);
    inPairs(whole, texture.pixels, places, [&](auto left, auto right) {
        found.upperLeft = left;
        found.upperRight = right;
    });
    inPairs(whole, texture.pixels + texture.stride, places, [&](auto left, auto right) {
        found.lowerLeft = left;
        found.lowerRight = right;
    });
    return found;
}

/// Of places anywhere: the edges repeat.
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE auto heldNeighbours(D d, const Texture& texture, V x, V y) {
    const auto clamped = [&](V index, int length) {
        return hn::Min(hn::Max(index, hn::Zero(d)), hn::Set(d, std::max(length - 1, 0)));
    };
    const V below = hn::Add(y, hn::Set(d, 1));
    auto found = neighbours(d, texture, clamped(x, texture.width - 1), clamped(y, texture.height),
                            clamped(below, texture.height));
    const hn::RebindToUnsigned<D> whole;
    const bool single = texture.width == 1;
    const auto before = hn::RebindMask(whole, hn::Lt(x, hn::Set(d, single ? INT_MAX : 0)));
    const auto after = hn::RebindMask(whole, hn::Gt(x, hn::Set(d, single ? INT_MAX : texture.width - 2)));
    const auto repeat = [&](auto& left, auto& right) {
        const auto first = left;
        left = hn::IfThenElse(after, right, left);
        right = hn::IfThenElse(before, first, right);
    };
    repeat(found.upperLeft, found.upperRight);
    repeat(found.lowerLeft, found.lowerRight);
    return found;
}

template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V look(D d, const Texture& texture, V u, V v) {
    using Halves = HalfLevels<hn::RebindToUnsigned<D>>;
    const auto share = [&](V position) {
        const auto part = hn::And(position, hn::Set(d, 32767));
        return hn::BitCast(typename Halves::Words(), hn::Or(part, hn::ShiftLeft<16>(part)));
    };
    const V x = hn::ShiftRight<fraction>(u);
    const V y = hn::ShiftRight<fraction>(v);
    const V right = hn::Sub(hn::Set(d, texture.width - 2), x);
    const V lower = hn::Sub(hn::Set(d, texture.height - 2), y);
    const V room = hn::Min(hn::Min(x, y), hn::Min(right, lower));
    const bool inside = hn::AllTrue(d, hn::Gt(room, hn::Set(d, -1)));
    const auto found = inside ? innerNeighbours(d, texture, x, y) : heldNeighbours(d, texture, x, y);
    const auto across = share(u);
    const auto down = share(v);
    const auto mixed = [&](auto upperLeft, auto upperRight, auto lowerLeft, auto lowerRight) {
        const auto above = Halves::between(upperLeft, upperRight, across);
        const auto below = Halves::between(lowerLeft, lowerRight, across);
        return hn::BitCast(d, Halves::rounded(Halves::between(above, below, down)));
    };
    const auto even = mixed(Halves::even(found.upperLeft), Halves::even(found.upperRight),
                            Halves::even(found.lowerLeft), Halves::even(found.lowerRight));
    const auto odd = mixed(Halves::odd(found.upperLeft), Halves::odd(found.upperRight),
                           Halves::odd(found.lowerLeft), Halves::odd(found.lowerRight));
    return hn::Or(even, hn::ShiftLeft<8>(odd));
}

/// Pixels of one stretch between marks; `start` are the positions of lane 0 and `step` what each lane adds.
/// Rows of small pictures are short: the last vector overlaps the one before, and where there is none it is
/// cut.
HWY_INLINE void turnStretch(const Texture& texture, const int (&start)[2], const int (&step)[2], int first,
                            int count, std::uint8_t* out) {
    const hn::CappedTag<std::int32_t, 8> d;
    constexpr int lanes = int(hn::MaxLanes(hn::CappedTag<std::int32_t, 8>()));
    std::int32_t few[lanes];
    const auto lanesInOrder = hn::Iota(d, 0);
    auto* target = count < lanes ? few : reinterpret_cast<std::int32_t*>(out);
    for (int next = 0; next < count; next += lanes) {
        const int lane = std::max(std::min(next, count - lanes), 0);
        const auto along = hn::Add(lanesInOrder, hn::Set(d, first + lane));
        const auto u = hn::Add(hn::Set(d, start[0]), hn::Mul(along, hn::Set(d, step[0])));
        const auto v = hn::Add(hn::Set(d, start[1]), hn::Mul(along, hn::Set(d, step[1])));
        hn::StoreU(look(d, texture, u, v), d, target + lane);
    }
    if (count < lanes) std::memcpy(out, few, std::size_t(count) * 4);
}

void AffineRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out) {
    const int step[] = {int(u.step >> (Line::bits - fraction)), int(v.step >> (Line::bits - fraction))};
    for (int at = from; at < to;) {
        const int mark = at & ~(marks - 1);
        const int end = std::min(to, mark + marks);
        const int start[] = {clampedTo(u.at(mark), texture.width), clampedTo(v.at(mark), texture.height)};
        turnStretch(texture, start, step, at - mark, end - at, out);
        out += std::ptrdiff_t(end - at) * 4;
        at = end;
    }
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(AffineRow);

void affineRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out) {
    HWY_DYNAMIC_DISPATCH(AffineRow)(texture, u, v, from, to, out);
}

}
#endif
