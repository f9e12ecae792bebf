#pragma once

#include "platform/image/kernels/Kernels.h"

/// The slow, obvious twin of each kernel: one value after the other, by the rules that Kernels.h tells.
namespace murbo::Twins {

using namespace Kernels;

void blendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, Depth depth, int count,
               std::int16_t* out);
void resampleRow(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out);
void packPixels(const std::int16_t* in, int pixels, bool opaque, std::uint8_t* out);
void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const Matrix& matrix, std::uint8_t* out);
void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const Matrix& matrix, const std::uint32_t* cube, std::uint8_t* out);
void multiplyAlpha(const std::int16_t* alpha, int count, std::uint8_t* pixels);
void over(const std::uint8_t* above, int count, std::uint8_t* pixels);
void over(std::uint32_t above, int count, std::uint8_t* pixels);
void fade(int opacity, int count, std::uint8_t* pixels);
void meanOfThree(const std::uint8_t* ones, const std::uint8_t* others, int count, std::uint8_t* pixels);
void mask(const std::uint8_t* masks, int count, std::uint8_t* pixels);
void multiply(const std::uint8_t* above, int count, std::uint8_t* pixels);
void screen(const std::uint8_t* above, int count, std::uint8_t* pixels);
void overlay(const std::uint8_t* above, int count, std::uint8_t* pixels);
void softLight(const std::uint8_t* above, int count, std::uint8_t* pixels);
void add(const std::uint8_t* above, int count, std::uint8_t* pixels);
void turnRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out);
void smearRow(const std::uint8_t* in, int count, int reach, std::uint8_t* out);
void transpose(const std::uint8_t* in, std::ptrdiff_t inStride, int width, int height, std::uint8_t* out,
               std::ptrdiff_t outStride);
void lumaRow(const std::uint8_t* pixels, int count, std::uint8_t* y);
void chromaRow(const std::uint8_t* upper, const std::uint8_t* lower, int count, std::uint8_t* cb,
               std::uint8_t* cr);

}
