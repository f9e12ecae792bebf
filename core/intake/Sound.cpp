#include "core/intake/Sound.h"

#include "platform/base/Cancelled.h"
#include "platform/base/Text.h"
#include "platform/media/MediaFile.h"
#include "platform/media/MonoReader.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace murbo {
namespace {

constexpr std::int64_t afterLength = 36; // bytes of the header behind the RIFF length
constexpr std::int64_t partLength = Sound::speechRate * 4;

void append(std::string& bytes, std::uint64_t value, int count) {
    for (int at = 0; at < count; ++at) bytes.push_back(static_cast<char>(value >> (8 * at) & 0xFF));
}

std::string nameOf(const std::filesystem::path& file) {
    return Text::repaired(file.filename().string());
}

/// Opens the first sound track, and tells a file without one from a file that can't be read.
MonoReader open(const std::filesystem::path& file) {
    try {
        if (MediaFile::facts(file).sound) return MonoReader(SoundReader::open(file), Sound::speechRate);
    } catch (const Problem&) {
        std::throw_with_nested(Problem("The sound of " + nameOf(file) + " could not be read."));
    }
    throw Problem(nameOf(file) + " has no sound to transcribe.");
}

std::string samples(std::span<const float> sound) {
    std::string bytes(sound.size() * 2, '\0');
    for (std::size_t at = 0; at < sound.size(); ++at) {
        const auto value =
            static_cast<std::uint16_t>(std::lrint(std::clamp(sound[at] * 32768.0f, -32768.0f, 32767.0f)));
        bytes[2 * at] = static_cast<char>(value & 0xFF);
        bytes[2 * at + 1] = static_cast<char>(value >> 8);
    }
    return bytes;
}

std::int64_t sampleAt(double seconds) {
    return std::llround(seconds * Sound::speechRate);
}

/// Writes the samples behind the header. Answers how many there are, up to the last that holds sound.
std::int64_t copy(MonoReader& reader, std::int64_t from, std::int64_t to, const TemporaryFile& into,
                  const std::stop_token& stop) {
    std::vector<float> part;
    std::int64_t heard = 0;
    for (auto at = from; at < to; at += partLength) {
        if (stop.stop_requested()) throw Cancelled();
        part.resize(static_cast<std::size_t>(std::min(partLength, to - at)));
        const auto held = reader.read(at, part);
        if (held > 0) heard = at - from + held;
        into.write(samples(part), static_cast<std::size_t>(Sound::headerSize + (at - from) * 2));
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
    const auto from = sampleAt(start);
    const auto to = std::max(from, sampleAt(std::min(end, reader.length())));
    header((to - from) * 2); // refused before it fills the disk
    auto wav = TemporaryFile::make(".wav");
    const auto count = copy(reader, from, to, wav, stop);
    wav.write(header(count * 2), 0);
    wav.cutOff(static_cast<std::size_t>(headerSize + count * 2));
    return wav;
}

}
