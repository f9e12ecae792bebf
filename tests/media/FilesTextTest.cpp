#include "platform/base/Problem.h"
#include "platform/media/FrameReader.h"
#include "platform/media/MonoReader.h"
#include "platform/media/SoundReader.h"
#include "tests/Approved.h"
#include "tests/media/Made.h"

#include <cmath>

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

using Purpose = FrameReader::Purpose;

/// What %P, %S and %F in approved/files.txt stand for: pictures as bright as their number, a tone of 0.1 s at
/// each half second, on the right side half as loud, and the folder of the files made before.
const std::string pictures = "-f lavfi -i nullsrc=s=64x36:d=2:r=";
const std::string grey = "geq=lum='20+2*N':cb=128:cr=128";
const std::string beeps =
    "-f lavfi -i "
    "aevalsrc='0.5*sin(2764*t)*lt(mod(t\\,0.5)\\,0.1)|0.25*sin(2764*t)*lt(mod(t\\,0.5)\\,0.1)':d=2:s=";

std::string filledIn(std::string text) {
    for (const auto& [word, meaning] :
         {std::pair{"%P", pictures}, {"%N", grey}, {"%S", beeps}, {"%F", made::folder().string() + "/"}})
        for (auto at = text.find(word); at != text.npos; at = text.find(word)) text.replace(at, 2, meaning);
    return text;
}

/// Which picture it is, by its brightness.
int number(const Frame& frame) {
    const double bytes = frame.depth > 8 ? 2 : 1;
    double sum = 0;
    for (int x = 8; x < frame.width - 8; ++x) {
        const auto* at = frame.planes[0] + frame.height / 2 * frame.strides[0] + std::ptrdiff_t(x * bytes);
        sum += bytes == 1 ? at[0] : (at[0] + 256 * at[1]) / double(1 << (frame.depth - 8));
    }
    return int(std::lround((sum / (frame.width - 16) - 20) / 2));
}

std::string shown(const std::optional<FrameReader::TimedFrame>& frame) {
    return frame ? fmt::format("#{} {:.4f} ({:.4f})", number(frame->frame), frame->time, frame->from)
                 : "none";
}

std::string facts(const MediaFacts& facts) {
    auto text = fmt::format("  {:.3f} s", facts.length);
    if (const auto& picture = facts.picture)
        text += fmt::format(", {:g}x{:g}, {:.3f} fps, mean {:.2f}{}{}{}, {} turns, grid {:.12f} from {:.4f}",
                            picture->size.width, picture->size.height, picture->nominalRate,
                            picture->meanRate, picture->variableRate ? " variable" : "",
                            picture->interlaced ? " interlaced" : "", picture->highDynamicRange ? " HDR" : "",
                            picture->quarterTurns, picture->grid.spacing, picture->grid.first);
    if (const auto& sound = facts.sound)
        text += fmt::format(", {} sound, {} Hz, {} channels", sound->tracks, sound->rate, sound->channels);
    return text + "\n";
}

std::string pictureLines(const std::filesystem::path& file) {
    auto reader = FrameReader::open(file, Purpose::stills);
    std::string text = facts(reader.facts());
    const double end = reader.facts().length;
    for (const double time : {-1.0, 0.0, 0.034, 0.9, 0.9667, 1.0, 1.001, 1.0334, end - 0.02, end, end + 5})
        text += fmt::format("  at {:.4f}: {}\n", time, shown(reader.at(time)));
    text += fmt::format("  keyframe before 1.3: {}", shown(reader.keyframe(1.3)));
    for (int count = 0; count < 3; ++count) text += fmt::format(", then {}", shown(reader.next()));
    if (const auto frame = reader.at(0.5))
        text += fmt::format(
            "\n  stored {}x{} layout {} depth {}{} matrix {} transfer {} primaries {} site {} turn {} aspect "
            "{:.3f}{}{}",
            frame->frame.width, frame->frame.height, int(frame->frame.layout), frame->frame.depth,
            frame->frame.fullRange ? " full" : "", int(frame->frame.matrix), int(frame->frame.transfer),
            int(frame->frame.primaries), int(frame->frame.chromaSite), frame->frame.turn,
            frame->frame.pixelAspect, frame->frame.hasAlpha ? " alpha" : "",
            frame->frame.interleavedChroma ? " interleaved" : "");
    text += "\n  from there reaches";
    for (const double time : {0.3, 0.55, 1.4, end}) text += fmt::format(" {}", reader.reaches(time));
    for (const auto purpose : {Purpose::playing, Purpose::sampling}) {
        auto all = FrameReader::open(file, purpose);
        int count = 0;
        double last = 0;
        while (const auto frame = all.next()) ++count, last = frame->time;
        text += fmt::format("{} {} pictures to {:.4f}", purpose == Purpose::playing ? "\n " : ", sampled",
                            count, last);
    }
    return text + "\n";
}

/// Where it begins to be loud, to a hundredth of a second, and how loud both sides are then.
std::string soundLines(const std::filesystem::path& file) {
    std::string text;
    for (int track = 0; track < 2; ++track) try {
            auto reader = SoundReader::open(file, track);
            std::vector<float> all(2 * 48000 * 3);
            const auto held = reader.read(-24000, all);
            text += fmt::format("  sound {}: {:.2f} s, {:.2f} s held, loud", track, reader.length(),
                                double(held) / 48000);
            bool loud = false;
            for (int at = 0; at < 300; ++at) {
                double left = 0, right = 0;
                for (int frame = 480 * at; frame < 480 * (at + 1); ++frame)
                    left += all[2 * frame] * all[2 * frame], right += all[2 * frame + 1] * all[2 * frame + 1];
                if (left > 480 * 0.03 && !loud)
                    text += fmt::format(" {:.2f} ({:.1f}, {:.1f})", at / 100.0 - 0.5, std::sqrt(left / 480),
                                        std::sqrt(right / 480));
                loud = left > 480 * 0.03;
            }
            MonoReader mono(SoundReader::open(file, track), 16000);
            std::vector<float> low(1600);
            const auto count = mono.read(8000, low);
            double sum = 0;
            for (const float each : low) sum += each * each;
            text += fmt::format("; mono {} of {:.1f}\n", count, std::sqrt(sum / 1600));
        } catch (const Problem& problem) {
            if (track == 0) text += fmt::format("  {}\n", problem.what());
        }
    return text;
}

}

TEST(FilesText, filesAreReadAsApproved) {
    MURBO_NEEDS_FFMPEG();
    std::string all;
    for (const auto& line : linesOf("media/approved/files.txt")) {
        const auto bar = line.find('|');
        const auto file = made::file(line.substr(0, bar), filledIn(line.substr(bar + 1)));
        all += line.substr(0, bar) + "\n";
        try {
            all += pictureLines(file);
        } catch (const Problem& problem) {
            all += fmt::format("  {}\n", problem.what()) + facts(MediaFile::facts(file));
        }
        all += soundLines(file);
    }
    expectApproved("media/approved/read.txt", all);
}
