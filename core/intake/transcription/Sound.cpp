#include "core/intake/transcription/Sound.h"

#include "platform/base/Cancelled.h"
#include "platform/base/Text.h"
#include "platform/media/MediaFile.h"
#include "platform/media/MonoReader.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <vector>

namespace murbo {
namespace {

constexpr std::int64_t afterLength = 36;                   // bytes of the header after the RIFF length
constexpr std::int64_t partLength = Sound::speechRate / 2; // stays in the processor's cache

void append(std::string& bytes, std::uint64_t value, int count) {
    for (int at = 0; at < count; ++at) bytes.push_back(static_cast<char>(value >> (8 * at) & 0xFF));
}

std::string nameOf(const std::filesystem::path& file) {
    return Text::repaired(file.filename().string());
}

/// Why a file's sound can't be opened: it has none, or it can't be read.
[[noreturn]] void refuse(const std::filesystem::path& file) {
    bool hasSound = true;
    try {
        hasSound = MediaFile::facts(file).sound.has_value();
    } catch (const Problem&) {
        // reported below, with its first cause
    }
    if (!hasSound) throw Problem(nameOf(file) + " has no sound to transcribe.");
    std::throw_with_nested(Problem("The sound of " + nameOf(file) + " could not be read."));
}

MonoReader open(const std::filesystem::path& file) try {
    return MonoReader(SoundReader::open(file), Sound::speechRate);
} catch (const Problem&) {
    refuse(file);
}

/// The nearest whole samples, full scale at ±32,768, in the order of bytes that the file wants.
std::string_view samples(std::span<const float> sound, std::vector<std::int16_t>& room) {
    static_assert(std::endian::native == std::endian::little);
    room.resize(sound.size());
    for (std::size_t at = 0; at < sound.size(); ++at) {
        // Above zero, where cutting off the fraction is rounding down: the compiler takes many at once.
        const float raised = std::clamp(sound[at] * 32768.0f + 32768.5f, 0.0f, 65535.5f);
        room[at] = static_cast<std::int16_t>(static_cast<std::int32_t>(raised) - 32768);
    }
    return {reinterpret_cast<const char*>(room.data()), room.size() * sizeof(std::int16_t)};
}

std::int64_t sampleAt(double seconds) {
    return std::llround(seconds * Sound::speechRate);
}

/// A project may hold any times: what is too long is refused before it fills the disk, in numbers that can't
/// overflow.
void refuseTooLong(double seconds) {
    constexpr double immense = 1e12;
    Sound::header(std::llround(std::clamp(seconds, 0.0, immense)) * Sound::speechBytesPerSecond);
}

/// Writes the samples after the header. Answers how many there are, up to the last that holds sound.
std::int64_t copy(MonoReader& reader, std::int64_t from, std::int64_t to, const TemporaryFile& into,
                  const std::stop_token& stop) {
    std::vector<float> part;
    std::vector<std::int16_t> room;
    std::int64_t heard = 0;
    for (auto at = from; at < to; at += partLength) {
        if (stop.stop_requested()) throw Cancelled();
        part.resize(static_cast<std::size_t>(std::min(partLength, to - at)));
        const auto held = reader.read(at, part);
        if (held > 0) heard = at - from + held;
        into.write(samples(part, room), static_cast<std::size_t>(Sound::headerSize + (at - from) * 2));
    }
    return heard;
}

}

std::string Sound::header(std::int64_t bytes) {
    if (bytes + afterLength > UINT32_MAX)
        throw Problem("A stretch of over 37 hours can't be transcribed at once.");
    std::string header = "RIFF";
    append(header, static_cast<std::uint64_t>(bytes + afterLength), 4);
    header += "WAVEfmt ";
    append(header, 16, 4); // length of the format
    append(header, 1, 2);  // PCM
    append(header, 1, 2);  // channels
    append(header, speechRate, 4);
    append(header, speechBytesPerSecond, 4);
    append(header, 2, 2);  // bytes a frame
    append(header, 16, 2); // bits a sample
    header += "data";
    append(header, static_cast<std::uint64_t>(bytes), 4);
    return header;
}

TemporaryFile Sound::wav(const std::filesystem::path& file, double start, double end, std::stop_token stop) {
    auto reader = open(file);
    const double last = std::min(end, reader.length());
    refuseTooLong(last - start);
    const auto from = start < last ? sampleAt(start) : 0;
    const auto to = start < last ? sampleAt(last) : 0;
    auto wav = TemporaryFile::make(".wav");
    const auto count = copy(reader, from, to, wav, stop);
    wav.write(header(count * 2), 0);
    wav.cutOff(static_cast<std::size_t>(headerSize + count * 2));
    return wav;
}

}
