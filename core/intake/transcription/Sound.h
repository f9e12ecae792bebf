#pragma once

#include "platform/base/TemporaryFile.h"
#include "platform/media/SoundReader.h"

#include <cstdint>
#include <filesystem>
#include <stop_token>
#include <string>

namespace murbo {

/// A stretch of a file's sound as the engines that listen want it: a WAV file of 16-bit samples, 16,000 a
/// second, one channel.
namespace Sound {

inline constexpr int speechRate = 16000;
inline constexpr std::int64_t headerSize = 44;
inline constexpr std::int64_t speechBytesPerSecond = speechRate * 2;

/// The header of such a file, for a number of bytes of samples. Throws a Problem where they are more than a
/// WAV file can hold (some 37 hours).
std::string header(std::int64_t bytes);

/// Writes the sound from `start` to `end` (seconds on the file) into a temporary file, as far as the file's
/// first sound track reaches. Blocks; memory stays flat. Throws a Problem that names the file; Cancelled.
TemporaryFile wav(const std::filesystem::path& file, double start, double end, std::stop_token stop = {});

}

}
