#include "platform/base/Problem.h"
#include "platform/media/SoundReader.h"
#include "tests/media/Made.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

// Noise that swells and falls: no stretch of it is like another, so that a shift by one frame shows.
const std::string swelling =
    "-f lavfi -i \"anoisesrc=r=44100:d=9:seed=3:c=pink:a=0.5\" -af volume='0.6+0.4*sin(t*3)':eval=frame ";
const std::string stereo44 = swelling + "-ac 2 -ar 44100 ";

std::vector<float> readAll(SoundReader& reader, std::int64_t frames, std::int64_t piece = 4800) {
    std::vector<float> all(frames * 2);
    for (std::int64_t from = 0; from < frames; from += piece) {
        const std::int64_t count = std::min(piece, frames - from);
        reader.read(from, std::span(all).subspan(from * 2, count * 2));
    }
    return all;
}

double loudest(std::span<const float> samples) {
    double most = 0;
    for (const float sample : samples) most = std::max(most, std::abs(static_cast<double>(sample)));
    return most;
}

double largestDifference(std::span<const float> one, std::span<const float> other) {
    double most = 0;
    for (std::size_t index = 0; index < std::min(one.size(), other.size()); ++index)
        most = std::max(most, std::abs(static_cast<double>(one[index]) - other[index]));
    return most;
}

// The middle of the loudest 5 ms: where a click lies.
double clickAt(std::span<const float> samples) {
    double best = 0;
    std::size_t at = 0;
    for (std::size_t index = 0; index < samples.size(); index += 2)
        if (std::abs(samples[index]) > best) best = std::abs(samples[index]), at = index / 2;
    return static_cast<double>(at) / Sound::rate;
}

struct Kind {
    const char* name;
    std::string arguments;
    double tolerance; ///< between a jump and reading through: decoders with a memory come near, not equal
};

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
    }
}

TEST(SoundReader, keepsAClickInItsPlace) {
    MURBO_NEEDS_FFMPEG();
    const std::string click =
        "-f lavfi -i \"aevalsrc='if(eq(n,48000),0.9,0)|if(eq(n,48000),0.9,0)':s=48000:d=3\" ";
    const std::string picture = "-f lavfi -i testsrc=s=64x64:d=3:r=30 ";
    const std::pair<const char*, std::string> files[] = {
        {"click.mp4", picture + click + "-c:a aac -c:v libx264 -g 90"},
        {"click.mov", picture + click + "-c:a pcm_s16le -c:v mpeg4"},
        {"click.mkv", picture + click + "-c:a flac -c:v libx264"},
        {"click.mp3", click + "-c:a libmp3lame"},
        {"click.opus", click + "-c:a libopus"},
        {"click.ts", picture + click + "-c:a mp2 -c:v mpeg2video"},
    };
    for (const auto& [name, arguments] : files) {
        SoundReader reader = SoundReader::open(made::file(name, arguments));
        std::vector<float> whole(3 * Sound::rate * 2);
        reader.read(0, whole);
        // Streams of packets are written with the coder's delay at their start.
        EXPECT_NEAR(clickAt(whole), 1.0, std::string_view(name) == "click.ts" ? 0.011 : 0.0002) << name;
    }
}

// Its times are those of the packets' ends, which a writer of 2011 took for their beginnings.
TEST(SoundReader, readsVorbisEvenlyWhateverItsTimesMean) {
    MURBO_NEEDS_FFMPEG();
    const std::filesystem::path path = MURBO_FOOTAGE "/actors-battle.webm";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << "The footage is not here.";
    const std::vector<float> truth = made::sound(path);
    SoundReader reader = SoundReader::open(path);
    const auto frames = static_cast<std::int64_t>(truth.size() / 2);
    EXPECT_LT(largestDifference(readAll(reader, frames), truth), 0.001);
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

TEST(SoundReader, takesAGapByItsTimes) {
    MURBO_NEEDS_FFMPEG();
    const auto gap = made::file(
        "gap.mkv", "-f lavfi -i sine=d=6:r=48000 -af \"aselect='not(between(t,2,3.5))'\" -c:a pcm_s16le");
    SoundReader reader = SoundReader::open(gap);
    std::vector<float> whole(6 * Sound::rate * 2);
    reader.read(0, whole);
    const auto part = [&](double from, double to) {
        return std::span(whole).subspan(static_cast<std::size_t>(from * 96000) / 2 * 2,
                                        static_cast<std::size_t>((to - from) * 96000) / 2 * 2);
    };
    EXPECT_GT(loudest(part(1.9, 1.97)), 0.1);
    EXPECT_EQ(loudest(part(2.1, 3.4)), 0);
    EXPECT_GT(loudest(part(3.6, 3.7)), 0.1);
    std::vector<float> again(Sound::rate);
    reader.read(static_cast<std::int64_t>(3.2 * Sound::rate), again);
    EXPECT_EQ(largestDifference(again, part(3.2, 3.7)), 0);
}

TEST(SoundReader, followsAClockThatDriftsWithoutABreak) {
    MURBO_NEEDS_FFMPEG();
    for (const double speed : {1.002, 0.998}) {
        // A tone that is loudest around 24 s.
        const auto path = made::file(
            "drift" + std::to_string(speed) + ".mkv",
            "-f lavfi -i \"aevalsrc='sin(600*t)*(0.2+0.7*exp(-2000*(t-24)*(t-24)))':s=48000:d=30\" -af "
            "asetpts=PTS*" +
                std::to_string(speed) + " -c:a pcm_s16le");
        SoundReader reader = SoundReader::open(path);
        const auto whole = readAll(reader, 29 * Sound::rate);
        EXPECT_NEAR(clickAt(whole), 24 * speed, 0.025) << speed;
        for (std::size_t index = 4800; index + 960 < whole.size(); index += 480)
            ASSERT_GT(loudest(std::span(whole).subspan(index, 960)), 0.15)
                << "silent at " << static_cast<double>(index) / 96000;
    }
}

TEST(SoundReader, mixesChannelsAsPeopleHearThem) {
    MURBO_NEEDS_FFMPEG();
    const auto expectLevels = [](const char* name, const std::string& arguments, double left, double right) {
        SoundReader reader = SoundReader::open(made::file(name, arguments + ":s=48000:d=2 -c:a pcm_s16le"));
        std::vector<float> second(Sound::rate * 2), sides[2];
        reader.read(Sound::rate / 2, second);
        for (std::size_t index = 0; index < second.size(); ++index) sides[index % 2].push_back(second[index]);
        EXPECT_NEAR(loudest(sides[0]), left, 0.001) << name;
        EXPECT_NEAR(loudest(sides[1]), right, 0.001) << name;
    };
    expectLevels("mono.wav", "-f lavfi -i aevalsrc='0.5*sin(600*t)'", 0.5, 0.5);
    // Left, right, middle, low, back left, back right: the middle is heard on both sides.
    expectLevels("surround.wav",
                 "-f lavfi -i aevalsrc='0.2*sin(600*t)|0|0.3*sin(600*t)|0.5*sin(100*t)|0|0':c=5.1",
                 0.2 + 0.3 * 0.7071, 0.3 * 0.7071);
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
