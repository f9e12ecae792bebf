#include "platform/base/Problem.h"
#include "platform/media/SoundReader.h"
#include "tests/media/Sounds.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

// Noise that swells and falls: no stretch of it is like another, so that a shift by one frame shows.
const std::string swelling =
    "-f lavfi -i \"anoisesrc=r=44100:d=9:seed=3:c=pink:a=0.5\" -af volume='0.6+0.4*sin(t*3)':eval=frame ";
const std::string stereo44 = swelling + "-ac 2 -ar 44100 ";

struct Kind {
    const char* name;
    std::string arguments;
    double tolerance; ///< between a jump and reading through: decoders with a memory come near, not equal
};

}

// Coders of sound start up before the file's zero, and what they make of that is never heard.
TEST(SoundReader, beginsAtTheFilesZeroWithWhatIsHeardThere) {
    MURBO_NEEDS_FFMPEG();
    // A click 20 ms in, less than what an AAC coder starts up for.
    const std::string click = "-f lavfi -i \"aevalsrc=if(eq(n\\,960)\\,0.9\\,0):s=48000:d=1\" ";
    for (const char* name : {"early.mp4", "early.m4a", "early.mov"}) {
        const auto path = made::file(name, click + "-c:a aac -b:a 192k");
        SoundReader reader = SoundReader::open(path);
        std::vector<float> samples(2 * Sound::rate);
        EXPECT_EQ(reader.read(0, samples), Sound::rate) << name;
        EXPECT_NEAR(clickAt(samples), 0.02, 0.0001) << name;
        std::vector<float> before(2 * 4800);
        EXPECT_GT(reader.read(-2400, before), 0) << name;
        EXPECT_EQ(loudest(std::span(before).first(2 * 2400)), 0) << name << ": nothing sounds before zero";
        EXPECT_NEAR(clickAt(before), 0.05 + 0.02, 0.0001) << name;
    }
}

TEST(SoundReader, readsTheSoundThatIsThereAndTheSameAfterAJump) {
    MURBO_NEEDS_FFMPEG();
    const Kind kinds[] = {
        {"aac.mp4", stereo44 + "-c:a aac -aac_pns 0 -b:a 128k", 1e-4},
        {"aac.mkv", stereo44 + "-c:a aac -aac_pns 0 -b:a 128k", 1e-4},
        {"sound.wav", stereo44 + "-c:a pcm_s16le", 1e-6},
        {"deep.mov", stereo44 + "-c:a pcm_s24le", 1e-6},
        {"sound.flac", stereo44 + "-c:a flac", 1e-6},
        {"sound.mp3", stereo44 + "-c:a libmp3lame -b:a 160k", 1e-4},
        {"sound.ogg", stereo44 + "-c:a libvorbis", 1e-4},
        {"opus.webm", stereo44 + "-ar 48000 -c:a libopus -b:a 128k", 2e-2},
        {"sound.ts", stereo44 + "-c:a mp2 -b:a 256k", 1e-4},
        {"ac3.mkv", stereo44 + "-c:a ac3 -b:a 256k", 2e-2},
    };
    for (const auto& [name, arguments, tolerance] : kinds) {
        SCOPED_TRACE(name);
        const auto path = made::file(name, arguments);
        const auto wanted = made::sound(path);
        SoundReader through = SoundReader::open(path);
        EXPECT_NEAR(through.length(), 9, 0.06);
        const auto whole = readAll(through, static_cast<std::int64_t>(wanted.size()) / 2, 4801);
        EXPECT_LT(largestDifference(whole, wanted), 0.002);
        EXPECT_GT(loudest(whole), 0.2);

        SoundReader jumping = SoundReader::open(path);
        std::mt19937 random(5);
        for (int jump = 0; jump < 20; ++jump) {
            const std::int64_t from = random() % (8 * Sound::rate);
            std::vector<float> piece(2 * (1 + random() % Sound::rate));
            jumping.read(from, piece);
            EXPECT_LE(largestDifference(piece, std::span(whole).subspan(from * 2)), tolerance) << from;
        }
        // After a jump there is nothing from before it, and a step back of any size is another jump.
        for (const std::int64_t back : {1, 4800, 12'000, 20'000, 30'000}) {
            std::vector<float> piece(2 * 4800);
            jumping.read(6 * Sound::rate, piece);
            jumping.read(3 * Sound::rate, piece);
            jumping.read(3 * Sound::rate - back, piece);
            EXPECT_LE(largestDifference(piece, std::span(whole).subspan((3 * Sound::rate - back) * 2)),
                      tolerance)
                << "back by " << back;
        }
    }
}

TEST(SoundReader, isSilentWhereThereIsNoSound) {
    MURBO_NEEDS_FFMPEG();
    const auto late = made::file("late.mp4",
                                 "-f lavfi -i testsrc=s=64x64:d=4:r=30 -itsoffset 1.5 -f lavfi -i sine=d=2 "
                                 "-c:v libx264 -c:a aac");
    SoundReader reader = SoundReader::open(late);
    std::vector<float> second(Sound::rate * 2);
    EXPECT_EQ(reader.read(0, second), 0);
    EXPECT_EQ(loudest(second), 0);
    EXPECT_EQ(reader.read(Sound::rate, second), Sound::rate);
    EXPECT_LT(loudest(std::span(second).first(Sound::rate * 2 / 2 - 400)), 0.01);
    EXPECT_GT(loudest(std::span(second).last(Sound::rate)), 0.1);
    EXPECT_NEAR(reader.length(), 3.5, 0.05);
    EXPECT_NEAR(static_cast<double>(reader.read(3 * Sound::rate, second)), 0.5 * Sound::rate, 1200);
    for (const std::int64_t from :
         {INT64_MIN, INT64_MIN / 2, INT64_MAX, std::int64_t{1} << 40, std::int64_t{-96000}}) {
        std::fill(second.begin(), second.end(), 1.0f);
        EXPECT_EQ(reader.read(from, second), 0);
        EXPECT_EQ(loudest(second), 0);
    }
    EXPECT_GT(reader.read(-Sound::rate / 2 + 2 * Sound::rate, second), 0);
}

TEST(SoundReader, opensTheTrackThatIsAskedFor) {
    MURBO_NEEDS_FFMPEG();
    const auto two =
        made::file("two.mkv",
                   "-f lavfi -i aevalsrc=0.1:s=48000:d=1 -f lavfi -i aevalsrc=0.4:s=48000:d=1 -map 0 -map 1 "
                   "-c:a pcm_s16le");
    std::vector<float> some(2000);
    SoundReader::open(two, 1).read(9000, some);
    EXPECT_NEAR(some[500], 0.4, 0.01);
    EXPECT_THROW(SoundReader::open(two, 2), Problem);
    EXPECT_THROW(SoundReader::open(made::file("mute.mp4", "-f lavfi -i testsrc=s=64x64:d=1"), 0), Problem);
}
