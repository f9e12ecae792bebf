#include "platform/image/kernels/Kernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/image/kernels/Vhs.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/image/kernels/Pixels-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::Kernels::HWY_NAMESPACE {

/// A number for each grain that follows from its place alone (the finish of MurmurHash 3).
template <typename D, typename V = hn::VFromD<D>>
HWY_INLINE V mixed(D d, V value) {
    value = hn::Mul(hn::Xor(value, hn::ShiftRight<16>(value)), hn::Set(d, 0x85EBCA6B));
    value = hn::Mul(hn::Xor(value, hn::ShiftRight<13>(value)), hn::Set(d, 0xC2B2AE35));
    return hn::Xor(value, hn::ShiftRight<16>(value));
}

void Vhs(const VhsRow& tape, const std::uint8_t* in, int count, std::uint8_t* out) {
    inVectors<std::uint32_t>(count, [&](auto d, int at) {
        const hn::Repartition<std::uint16_t, decltype(d)> words;
        const hn::Repartition<std::int16_t, decltype(d)> signs;
        const auto level = hn::Set(d, 255);
        const auto here = load(d, in, at);
        const auto near = hn::And(hn::ShiftRight<16>(load(d, in, at - tape.whole)), level);
        const auto far = hn::And(hn::ShiftRight<16>(load(d, in, at - tape.whole - 1)), level);
        const auto bled = hn::ShiftRight<8>(hn::Add(hn::Mul(near, hn::Set(d, std::uint32_t(256 - tape.part))),
                                                    hn::Mul(far, hn::Set(d, std::uint32_t(tape.part)))));
        const auto even = hn::Set(d, 0x00FF00FF);
        const auto blueRed = hn::BitCast(words, hn::Or(hn::And(here, level), hn::ShiftLeft<16>(bled)));
        const auto greenAlpha = hn::BitCast(words, hn::And(hn::ShiftRight<8>(here), even));

        const auto grain = mixed(d, hn::Xor(hn::LoadU(d, tape.grain + at), hn::Set(d, tape.seed)));
        const auto alpha = hn::ShiftRight<24>(here);
        const auto max = hn::BitCast(words, inBothHalves(alpha));
        const auto noise = [&](auto bits) {
            const auto random = hn::Mul(hn::BitCast(words, hn::And(bits, even)), hn::Set(words, tape.noise));
            return hn::Add(hn::ShiftRight<8>(random), hn::Set(words, tape.floor));
        };
        const auto light = hn::Set(signs, std::int16_t(tape.light));
        const auto lit = [&](auto channels, auto bits) {
            const auto sum = hn::Min(hn::Add(channels, noise(bits)), max);
            const auto product = hn::MulFixedPoint15(hn::BitCast(signs, hn::ShiftLeft<7>(sum)), light);
            return hn::BitCast(d,
                               hn::ShiftRight<7>(hn::BitCast(words, hn::Add(product, hn::Set(signs, 64)))));
        };
        const auto colours =
            hn::Or(lit(blueRed, grain), hn::ShiftLeft<8>(lit(greenAlpha, hn::ShiftRight<8>(grain))));
        const auto mask = hn::Set(d, 0xFF000000);
        store(d, hn::Or(hn::And(here, mask), hn::AndNot(mask, colours)), out, at);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::Kernels {

HWY_EXPORT(Vhs);

void vhsRow(const VhsRow& tape, const std::uint8_t* in, int count, std::uint8_t* out) {
    HWY_DYNAMIC_DISPATCH(Vhs)(tape, in, count, out);
}

}
#endif
