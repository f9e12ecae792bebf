#pragma once

#include "platform/image/kernels/Kernels.h"

/// The slow, obvious twins of kernels: one value after the other, by the rules that Kernels.h gives.
namespace murbo::Twins {

using namespace Kernels;

void blendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
               int count, std::int16_t* out);
void resampleRow(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out);
void packPixels(const std::int16_t* in, int pixels, bool opaque, std::uint8_t* out);
void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, std::uint8_t* out);
void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, const std::uint32_t* cube, std::uint8_t* out);
void multiplyAlpha(const std::int16_t* alpha, int count, std::uint8_t* pixels);
void over(const std::uint8_t* above, int count, std::uint8_t* pixels);
void over(std::uint32_t above, int count, std::uint8_t* pixels);
void fade(int opacity, int count, std::uint8_t* pixels);
void meanOfThree(const std::uint8_t* ones, const std::uint8_t* others, int count, std::uint8_t* pixels);
void affineRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out);
void smearRow(const std::uint8_t* in, int count, int reach, std::uint8_t* out);
void transpose(const std::uint8_t* in, std::ptrdiff_t inStride, int width, int height, std::uint8_t* out,
               std::ptrdiff_t outStride);

}
