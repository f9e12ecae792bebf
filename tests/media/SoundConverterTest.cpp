#include "platform/media/SoundConverter.h"
#include "platform/media/SoundReader.h"
#include "tests/media/Sounds.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(SoundConverter, followsAClockThatDriftsWithoutABreak) {
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

TEST(SoundConverter, mixesChannelsAsPeopleHearThem) {
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

namespace {

/// Stretches of one level each, in 16 bits a sample.
struct LevelWriter {
    void put(std::int64_t at, int samples, double level, int rate = Sound::rate, int channels = 2) {
        auto frame = ffmpeg::makePicture();
        frame->format = AV_SAMPLE_FMT_S16;
        frame->sample_rate = rate;
        frame->nb_samples = samples;
        av_channel_layout_default(&frame->ch_layout, channels);
        EXPECT_GE(av_frame_get_buffer(frame.get(), 0), 0);
        auto* values = reinterpret_cast<std::int16_t*>(frame->data[0]);
        std::fill_n(values, samples * channels, static_cast<std::int16_t>(std::lround(level * 32768)));
        converter.put(*frame, at);
    }
    /// The left side, in thousandths.
    long at(std::int64_t place) const {
        std::vector<float> one(2);
        return converter.copy(place, one) == 1 ? std::lround(one[0] * 1000) : -1;
    }
    SoundConverter converter;
};

}

TEST(SoundConverter, whereSoundComesTwiceTheFirstStaysAndAGapHasNone) {
    LevelWriter sound;
    EXPECT_EQ(sound.converter.end(), INT64_MIN);
    sound.put(0, 4800, 0.1);
    EXPECT_EQ(sound.converter.expected(), 4800);
    sound.put(2400, 4800, 0.2); // half of it is there already
    sound.put(9600, 4800, 0.3);
    sound.converter.finish();
    constexpr std::pair<int, int> levels[] = {{0, 100},      {2400, 100}, {4700, 100}, {4900, 200},
                                              {7100, 200},   {7300, -1},  {9500, -1},  {9700, 300},
                                              {14'399, 300}, {14'400, -1}};
    for (const auto& [place, level] : levels) EXPECT_EQ(sound.at(place), level) << place;
    EXPECT_EQ(sound.converter.end(), 14'400);
    std::vector<float> across(2 * 4800, 7.0F);
    EXPECT_EQ(sound.converter.copy(6000, across), 4800) << "up to the end of what was copied last";
    EXPECT_EQ(across[2 * 2000], 7.0F) << "what was never put in is left alone";
    EXPECT_EQ(sound.converter.copy(6000, std::span(across).first(2 * 2000)), 1200);
    sound.converter.forget(10'000);
    EXPECT_EQ(sound.at(9'999), -1);
    EXPECT_EQ(sound.at(10'000), 300);
    sound.converter.restart();
    EXPECT_EQ(sound.at(10'000), -1);
}

TEST(SoundConverter, soundOfMoreUnnamedChannelsThanHavePlacesIsSilent) {
    for (const auto& [channels, heard] : {std::pair{8, true}, {20, false}}) {
        LevelWriter sound;
        sound.put(0, 4800, 0.25, Sound::rate, channels);
        sound.converter.finish();
        EXPECT_EQ(sound.at(2400) > 0, heard) << channels;
    }
}

TEST(SoundConverter, goesOnWhereTheSoundChangesItsShape) {
    LevelWriter sound;
    sound.put(-1'000, 1'000, 0.3, 44'100, 1); // an encoder's lead
    sound.put(0, 48'000, 0.1);
    sound.put(48'000, 48'000, 0.2, 48'000, 1);
    sound.put(88'200, 44'100, 0.3, 44'100, 1);
    sound.converter.finish();
    for (const auto& [place, level] :
         {std::pair{-1'000, 300}, {40'000, 100}, {50'000, 200}, {94'000, 200}, {98'000, 300}, {143'000, 300}})
        EXPECT_NEAR(sound.at(place), level, 1) << place;
    EXPECT_EQ(sound.converter.end(), 144'000);
}
