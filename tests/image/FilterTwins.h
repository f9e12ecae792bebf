#pragma once

#include "platform/image/kernels/FilterKernels.h"

/// The slow, obvious twin of each filter's kernel, by the rules that FilterKernels.h tells.
namespace murbo::Twins {

using namespace Kernels;

void sumColours(const ColourSums& sums, int count, std::uint8_t* pixels);
void posterise(int levels, int count, std::uint8_t* pixels);
void lookUpColours(const ColourTable& table, int count, std::uint8_t* pixels);
void shadeRow(const std::int32_t* across, int down, const std::uint32_t* light, int x, int y, int count,
              std::uint8_t* pixels);
void keepBright(const std::uint32_t* shares, int count, std::uint8_t* pixels);
void tapeRow(const TapeRow& tape, const std::uint8_t* in, int count, std::uint8_t* out);
void evenOutRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, Depth depth,
                 int tolerance, int count, std::int16_t* out);
void brightnessRow(const std::uint8_t* pixels, int count, std::int16_t* out);
void inkRow(const std::int16_t* fine, const std::int16_t* coarse, int steep, int count, std::uint8_t* pixels);
void printRow(const PrintRow& print, int count, std::uint8_t* pixels);
void takeAlpha(const std::uint8_t* others, int count, std::uint8_t* pixels);

}
