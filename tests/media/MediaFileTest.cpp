#include "platform/media/FrameReader.h"
#include "platform/media/MediaFile.h"
#include "tests/ProblemOf.h"
#include "tests/media/Made.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace murbo;

namespace {

const std::string pattern = "-f lavfi -i testsrc=s=320x180:r=30:d=4 -f lavfi -i sine=d=4 ";
const std::string x264 = "-c:v libx264 -preset ultrafast -pix_fmt yuv420p ";

MediaFacts factsOf(const char* name, const std::string& arguments) {
    return MediaFile::facts(made::file(name, arguments));
}

std::filesystem::path cutToHalf(const std::filesystem::path& path) {
    const auto cut = path.parent_path() / ("half-" + path.filename().string());
    const std::string bytes = contentsOf(path);
    std::ofstream(cut, std::ios::binary) << bytes.substr(0, bytes.size() / 2);
    return cut;
}

std::string refusal(const std::filesystem::path& path) {
    return problemOf([&] { MediaFile::facts(path); });
}

}

TEST(MediaFile, tellsTheFactsOfRealFootage) {
    const std::filesystem::path folder = MURBO_FOOTAGE;
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "The real footage is not on this machine.";
    const std::tuple<const char*, double, const char*> files[] = {
        {"2021-01-15 12-00-00 blocks.mkv", 6.75, "1920x1080 60.00 60.00, 48000 2"},
        {"action-cam-29.97.mp4", 12.079, "854x480 29.97 29.97, 48000 2"},
        {"actors-battle.webm", 70.542, "798x332 24.00 24.00, 44100 2"},
        {"broken-cut-short.mkv", 2.883, "1920x1080 60.00 60.00, 48000 2"},
        {"camera-avchd-50i.mts", 0.544, "1920x1080 25.00 25.00 interlaced, 48000 2"},
        {"chapters.mp4", 1.089, "1080x720 29.97 29.97, 44100 1"},
        {"game-cave-60fps.mp4", 33.05, "480x320 60.00 60.00, 48000 2"},
        {"people-no-audio.mp4", 139.4, "768x432 10.00 10.00"},
        {"phone-vfr-portrait.mp4", 11.353, "1080x1440 10.71 7.40 variable, 44100 1"},
        {"talk-seven-people.mp4", 21, "360x288 25.00 25.00, 48000 2"},
        {"คลิปโทรศัพท์ 📱 (1).mp4", 2.548, "1080x1920 29.97 28.03 variable hdr turned 1, 44100 2"},
    };
    for (const auto& [name, length, told] : files) {
        const MediaFacts facts = MediaFile::facts(folder / name);
        EXPECT_NEAR(facts.length, length, 0.001) << name;
        ASSERT_TRUE(facts.picture) << name;
        const auto& picture = *facts.picture;
        auto text = fmt::format("{}x{} {:.2f} {:.2f}", picture.size.width, picture.size.height,
                                picture.nominalRate, picture.meanRate);
        if (picture.variableRate) text += " variable";
        if (picture.interlaced) text += " interlaced";
        if (picture.highDynamicRange) text += " hdr";
        if (picture.quarterTurns) text += fmt::format(" turned {}", picture.quarterTurns);
        if (facts.sound) text += fmt::format(", {} {}", facts.sound->rate, facts.sound->channels);
        EXPECT_EQ(text, told) << name;
    }
    EXPECT_NE(refusal(folder / "broken-no-moov.mp4").find("has no index"), std::string::npos);
    EXPECT_FALSE(MediaFile::facts(folder / "speech-jfk-1961.wav").picture);
    EXPECT_FALSE(MediaFile::facts(folder / "sounds" / "music.mp3").picture) << "a cover is no picture track";
}

TEST(MediaFile, countsTracksAndTurnsAndAspects) {
    MURBO_NEEDS_FFMPEG();
    const auto tracks = factsOf(
        "tracks.mkv", pattern + "-f lavfi -i sine=440:d=4 -map 1 -map 0 -map 2 " + x264 + "-c:a flac");
    EXPECT_EQ(tracks.sound->tracks, 2);
    EXPECT_FALSE(factsOf("only.m4a", "-f lavfi -i sine=d=2 -c:a aac").picture);
    EXPECT_FALSE(factsOf("mute.mkv", "-f lavfi -i testsrc=d=1 " + x264).sound);

    const auto upright = made::file("upright.mp4", pattern + x264);
    // The program counts its degrees the other way round.
    const std::pair<int, int> turns[] = {{0, 0}, {90, 3}, {180, 2}, {270, 1}, {45, 0}};
    for (const auto& [degrees, quarters] : turns) {
        const auto facts = factsOf(
            ("turned" + std::to_string(degrees) + ".mp4").c_str(),
            "-i " + made::quoted(upright) + " -c copy -metadata:s:v rotate=" + std::to_string(degrees));
        EXPECT_EQ(facts.picture->quarterTurns, quarters) << degrees;
        EXPECT_EQ(facts.picture->size, quarters % 2 ? (Size{180, 320}) : (Size{320, 180})) << degrees;
    }
    EXPECT_EQ(factsOf("wide.mp4", pattern + x264 + "-vf setsar=4/3").picture->size.height, 180);
    EXPECT_NEAR(factsOf("wide.mp4", "").picture->size.width, 320 * 4 / 3.0, 0.5);
}

TEST(MediaFile, tellsTheRateThatAFileWasMadeAt) {
    MURBO_NEEDS_FFMPEG();
    const auto rate = [](const char* name, const std::string& arguments) {
        return *factsOf(name, arguments).picture;
    };
    EXPECT_NEAR(rate("ntsc.mp4", "-f lavfi -i testsrc=r=30000/1001:d=2 " + x264).nominalRate, 29.97, 0.001);
    EXPECT_NEAR(rate("film.mkv", "-f lavfi -i testsrc=r=24000/1001:d=2 " + x264).nominalRate, 23.976, 0.001);
    EXPECT_EQ(rate("fast.mp4", "-f lavfi -i testsrc=r=120:d=1 " + x264).nominalRate, 120);
    // Times on a coarse clock that no rate fits.
    const auto uneven = rate("shaken.mp4",
                             "-f lavfi -i testsrc=r=30:d=8 -vf settb=1/1000,setpts='N*33.3+13*random(1)' "
                             "-fps_mode vfr -enc_time_base 1/1000 -video_track_timescale 1000 " +
                                 x264);
    EXPECT_GT(uneven.nominalRate, 20);
    EXPECT_LT(uneven.nominalRate, 61);
}

TEST(MediaFile, findsTheEndWhereTheHeaderDoesNotTell) {
    MURBO_NEEDS_FFMPEG();
    EXPECT_NEAR(factsOf("live.mkv", pattern + x264 + "-live 1 -g 30").length, 4, 0.1);
    EXPECT_NEAR(factsOf("fragments.mp4", pattern + x264 + "-g 30 -movflags frag_keyframe+empty_moov").length,
                4, 0.1);
    EXPECT_NEAR(factsOf("raw.aac", "-f lavfi -i anoisesrc=d=7 -c:a aac").length, 7, 0.1);
    const std::string noisy =
        "-f lavfi -i 'nullsrc=s=320x180:r=30:d=4,geq=random(1)*255:128:128' -g 30 " + x264;
    for (const char* name : {"noisy.mkv", "noisy.ts", "front.mp4"}) {
        const auto half = cutToHalf(
            made::file(name, noisy + (std::string_view(name) == "front.mp4" ? "-movflags faststart" : "")));
        const double length = MediaFile::facts(half).length;
        EXPECT_NEAR(length, 2, 0.25) << name;
        FrameReader reader = FrameReader::open(half);
        const auto last = reader.at(1000);
        ASSERT_TRUE(last) << name;
        EXPECT_NEAR(last->time, length, 0.15) << name;
    }
}

TEST(MediaFile, refusesWhatIsNoMedia) {
    const TemporaryFolder folder;
    std::string noise(200000, 0);
    for (std::size_t index = 0; index < noise.size(); ++index)
        noise[index] = static_cast<char>(index * index * 2654435761u >> 13);
    ASSERT_EQ(mkfifo((folder / "pipe.mp4").c_str(), 0600), 0);
    const std::pair<std::filesystem::path, std::string> cases[] = {
        {folder / "missing.mp4", "There is no file “missing.mp4”."},
        {folder.path, "“" + folder.path.filename().string() + "” is not a file."},
        {folder / "pipe.mp4", "“pipe.mp4” is not a file."},
        {"/dev/zero", "“zero” is not a file."},
        {folder.file("empty.mp4", ""), "“empty.mp4” is no movie or sound file that can be read."},
        {folder.file("text.mov", "Hello there.\n"), "“text.mov” is no movie or sound file that can be read."},
        {folder.file("noise.mkv", noise), "“noise.mkv” is no movie or sound file that can be read."},
        {folder.file("list.mp4", "ffconcat version 1.0\nfile '/etc/passwd'\n"),
         "“list.mp4” is no movie or sound file that can be read."},
        {folder.file("list.ts", "#EXTM3U\n#EXT-X-TARGETDURATION:5\n#EXTINF:5,\n/etc/passwd\n"),
         "“list.ts” is no movie or sound file that can be read."},
    };
    for (const auto& [path, words] : cases) EXPECT_EQ(refusal(path), words);
}
