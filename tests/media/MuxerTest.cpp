#include "platform/media/Muxer.h"
#include "tests/FullDisk.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <cstring>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// The parameters of a picture track of which nothing is decoded here.
ffmpeg::CodecContext codec() {
    ffmpeg::CodecContext made(avcodec_alloc_context3(nullptr));
    made->codec_type = AVMEDIA_TYPE_VIDEO;
    made->codec_id = AV_CODEC_ID_MPEG4;
    made->width = made->height = 32;
    made->time_base = {1, 25};
    made->framerate = {25, 1};
    return made;
}

/// Packets of a hundred bytes, one each 40 ms; each holds its number.
void write(Muxer& muxer, const AVStream* track, int packets) {
    for (int number = 0; number < packets; ++number) {
        const auto packet = ffmpeg::makePacket();
        ASSERT_GE(av_new_packet(packet.get(), 100), 0);
        std::memset(packet->data, number, 100);
        packet->pts = packet->dts = 40 * number;
        packet->duration = 40;
        packet->flags = AV_PKT_FLAG_KEY;
        muxer.write(*packet, {1, 1000}, track);
    }
}

/// Each packet of a file: its time in milliseconds and its first byte.
std::vector<std::array<int, 2>> packets(const std::filesystem::path& path) {
    AVFormatContext* opened = nullptr;
    EXPECT_GE(avformat_open_input(&opened, path.c_str(), nullptr, nullptr), 0);
    const ffmpeg::FormatContext format(opened);
    std::vector<std::array<int, 2>> all;
    const auto packet = ffmpeg::makePacket();
    while (format && av_read_frame(format.get(), packet.get()) >= 0) {
        const auto base = format->streams[packet->stream_index]->time_base;
        all.push_back({static_cast<int>(av_rescale_q(packet->pts, base, {1, 1000})), packet->data[0]});
        av_packet_unref(packet.get());
    }
    return all;
}

}

TEST(Muxer, bringsTheIndexToTheFrontOfAFileLargerThanItsBuffers) {
    const TemporaryFolder folder;
    const auto path = folder / "movie.mp4";
    Muxer muxer(path);
    const auto* track = muxer.addTrack(*codec());
    muxer.begin();
    write(muxer, track, 3000);
    muxer.finish();
    const auto bytes = contentsOf(path);
    EXPECT_GT(bytes.size(), 300'000u);
    EXPECT_LT(bytes.find("moov"), bytes.find("mdat"));
    const auto found = packets(path);
    ASSERT_EQ(found.size(), 3000u);
    for (int number = 0; number < 3000; ++number)
        ASSERT_EQ(found[static_cast<std::size_t>(number)], (std::array{40 * number, number % 256}));
}

TEST(Muxer, withoutATrackThereIsNoMovie) {
    const TemporaryFolder folder;
    Muxer muxer(folder / "movie.mp4");
    EXPECT_NE(problemOf([&] { muxer.begin(); }), "");
}
