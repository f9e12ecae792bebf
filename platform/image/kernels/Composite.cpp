#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Composite.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Pixels-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V over(D d, V above, V below) {
    const hn::Repartition<std::uint8_t, D> bytes;
    const auto clear = hn::Sub(hn::Set(d, 255), hn::ShiftRight<24>(above));
    const auto kept = times(d, below, inBothHalves(clear));
    return hn::BitCast(d, hn::SaturatedAdd(hn::BitCast(bytes, above), hn::BitCast(bytes, kept)));
}

/// Text is mostly clear or solid: whole vectors of either need no sums.
void Over(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const auto upper = load(d, above, at);
        if (hn::AllTrue(d, hn::Eq(upper, hn::Zero(d)))) return;
        const auto alpha = hn::ShiftRight<24>(upper);
        if (hn::AllTrue(d, hn::Eq(alpha, hn::Set(d, 255)))) return store(d, upper, pixels, at);
        store(d, over(d, upper, load(d, pixels, at)), pixels, at);
    });
}

void OverFlat(std::uint32_t above, int count, std::uint8_t* pixels) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        store(d, over(d, hn::Set(d, above), load(d, pixels, at)), pixels, at);
    });
}

void Fill(std::uint32_t pixel, int count, std::uint8_t* out) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) { store(d, hn::Set(d, pixel), out, at); });
}

void Fade(int opacity, int count, std::uint8_t* pixels) {
    const auto share = std::uint32_t(opacity) * 0x00010001;
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        store(d, times(d, load(d, pixels, at), hn::Set(d, share)), pixels, at);
    });
}

void MeanOfThree(const std::uint8_t* ones, const std::uint8_t* others, int count, std::uint8_t* pixels) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::Repartition<std::uint16_t, decltype(d)> words;
        const auto one = load(d, pixels, at);
        const auto two = load(d, ones, at);
        const auto three = load(d, others, at);
        const auto even = hn::Set(d, 0x00FF00FF);
        const auto mean = [&](auto channels) {
            const auto sum = hn::Add(hn::Add(channels(one), channels(two)), channels(three));
            const auto rounded = hn::Add(hn::BitCast(words, sum), hn::Set(words, std::uint16_t(1)));
            return hn::BitCast(d, hn::MulHigh(rounded, hn::Set(words, std::uint16_t(21846))));
        };
        const auto blueRed = mean([&](auto value) { return hn::And(value, even); });
        const auto rest = mean([&](auto value) { return hn::And(hn::ShiftRight<8>(value), even); });
        store(d, hn::Or(blueRed, hn::ShiftLeft<8>(rest)), pixels, at);
    });
}

void Premultiply(std::uint8_t* pixels, int count) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const auto straight = load(d, pixels, at);
        const auto alpha = hn::ShiftRight<24>(straight);
        const auto colours = hn::And(times(d, straight, inBothHalves(alpha)), hn::Set(d, 0x00FFFFFF));
        store(d, hn::Or(colours, hn::ShiftLeft<24>(alpha)), pixels, at);
    });
}

void SetAlpha(const std::int16_t* alpha, int count, std::uint8_t* pixels) {
    inVectors<std::int32_t>(count, [&](auto d, int at) {
        const hn::RebindToUnsigned<decltype(d)> whole;
        const auto found = hn::PromoteTo(d, hn::LoadU(hn::Rebind<std::int16_t, decltype(d)>(), alpha + at));
        const auto level = hn::ShiftRight<7>(hn::Add(found, hn::Set(d, 64)));
        const auto held = hn::BitCast(whole, hn::Min(hn::Max(level, hn::Zero(d)), hn::Set(d, 255)));
        const auto colours = hn::And(load(whole, pixels, at), hn::Set(whole, 0x00FFFFFF));
        store(whole, hn::Or(colours, hn::ShiftLeft<24>(held)), pixels, at);
    });
}

/// Four rows of four pixels become four columns.
HWY_INLINE void transposeBlock(const std::uint8_t* in, std::ptrdiff_t inStride, std::uint8_t* out,
                               std::ptrdiff_t outStride) {
    const hn::FixedTag<std::uint32_t, 4> d;
    const auto a = load(d, in, 0);
    const auto b = load(d, in + inStride, 0);
    const auto c = load(d, in + 2 * inStride, 0);
    const auto e = load(d, in + 3 * inStride, 0);
    const auto ab = hn::InterleaveLower(d, a, b);
    const auto ce = hn::InterleaveLower(d, c, e);
    const auto abHigh = hn::InterleaveUpper(d, a, b);
    const auto ceHigh = hn::InterleaveUpper(d, c, e);
    store(d, hn::ConcatLowerLower(d, ce, ab), out, 0);
    store(d, hn::ConcatUpperUpper(d, ce, ab), out + outStride, 0);
    store(d, hn::ConcatLowerLower(d, ceHigh, abHigh), out + 2 * outStride, 0);
    store(d, hn::ConcatUpperUpper(d, ceHigh, abHigh), out + 3 * outStride, 0);
}

void Transpose(const std::uint8_t* in, std::ptrdiff_t inStride, int width, int height, std::uint8_t* out,
               std::ptrdiff_t outStride) {
    const int wholeWidth = width & ~3;
    const int wholeHeight = height & ~3;
    for (int x = 0; x < wholeWidth; x += 4) {
        for (int y = 0; y < wholeHeight; y += 4)
            transposeBlock(in + y * inStride + x * 4, inStride, out + x * outStride + y * 4, outStride);
    }
    for (int y = 0; y < height; ++y) {
        for (int x = y < wholeHeight ? wholeWidth : 0; x < width; ++x)
            std::memcpy(out + x * outStride + y * 4, in + y * inStride + x * 4, 4);
    }
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(Over);
HWY_EXPORT(OverFlat);
HWY_EXPORT(Fill);
HWY_EXPORT(Fade);
HWY_EXPORT(MeanOfThree);
HWY_EXPORT(Premultiply);
HWY_EXPORT(SetAlpha);
HWY_EXPORT(Transpose);

void over(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Over)(above, count, pixels);
}

void over(std::uint32_t above, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(OverFlat)(above, count, pixels);
}

void fill(std::uint32_t pixel, int count, std::uint8_t* out) {
    HWY_DYNAMIC_DISPATCH(Fill)(pixel, count, out);
}

void fade(int opacity, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(Fade)(opacity, count, pixels);
}

void meanOfThree(const std::uint8_t* ones, const std::uint8_t* others, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(MeanOfThree)(ones, others, count, pixels);
}

void premultiply(std::uint8_t* pixels, int count) {
    HWY_DYNAMIC_DISPATCH(Premultiply)(pixels, count);
}

void multiplyAlpha(const std::int16_t* alpha, int count, std::uint8_t* pixels) {
    HWY_DYNAMIC_DISPATCH(SetAlpha)(alpha, count, pixels);
    premultiply(pixels, count);
}

void transpose(const std::uint8_t* in, std::ptrdiff_t inStride, int width, int height, std::uint8_t* out,
               std::ptrdiff_t outStride) {
    HWY_DYNAMIC_DISPATCH(Transpose)(in, inStride, width, height, out, outStride);
}

}
#endif
