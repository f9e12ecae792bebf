#include "tests/media/Made.h"

#include <sstream>

namespace murbo::made {

ffmpeg::Picture picture(AVPixelFormat format, int width, int height, int byte) {
    auto made = ffmpeg::makePicture();
    made->format = format;
    made->width = width;
    made->height = height;
    EXPECT_GE(av_frame_get_buffer(made.get(), 0), 0);
    for (int plane = 0; plane < 4 && made->buf[plane]; ++plane)
        std::memset(made->buf[plane]->data, byte, made->buf[plane]->size);
    return made;
}

std::vector<Shown> pictures(const std::filesystem::path& path, const std::string& filter) {
    std::istringstream lines(output("ffmpeg -nostdin -v quiet -noautorotate -i " + quoted(path) +
                                    " -map 0:v:0 -fps_mode passthrough -vf " + filter +
                                    " -enc_time_base -1 -f framecrc -"));
    std::vector<Shown> shown;
    double tick = 0;
    for (std::string line; std::getline(lines, line);) {
        int numerator = 0;
        int denominator = 1;
        long long time = 0;
        unsigned sum = 0;
        if (std::sscanf(line.c_str(), "#tb 0: %d/%d", &numerator, &denominator) == 2)
            tick = static_cast<double>(numerator) / denominator;
        else if (std::sscanf(line.c_str(), "0, %*d, %lld, %*d, %*d, 0x%x", &time, &sum) == 2)
            shown.push_back({static_cast<double>(time) * tick, sum});
    }
    return shown;
}

std::uint32_t sum(const Frame& frame) {
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    const auto row = [&](const std::uint8_t* bytes, int count) {
        for (int begin = 0; begin < count; begin += 3000) { // the sums don't overflow before that
            for (int index = begin; index < std::min(count, begin + 3000); ++index)
                high += low += bytes[index];
            low %= 65521;
            high %= 65521;
        }
    };
    const bool halfWidth =
        frame.layout == Frame::Layout::chroma420 || frame.layout == Frame::Layout::chroma422;
    const bool halfHeight = frame.layout == Frame::Layout::chroma420;
    const int bytes = frame.depth > 8 ? 2 : 1;
    const int planes = frame.layout == Frame::Layout::bgra || frame.layout == Frame::Layout::grey ? 1 : 3;
    for (int plane = 0; plane < planes + (frame.hasAlpha && planes == 3); ++plane) {
        const bool chroma = plane == 1 || plane == 2;
        const int width = chroma && halfWidth ? (frame.width + 1) / 2 : frame.width;
        const int height = chroma && halfHeight ? (frame.height + 1) / 2 : frame.height;
        const int wide = frame.layout == Frame::Layout::bgra ? 4 : bytes;
        for (int y = 0; y < height; ++y) row(frame.planes[plane] + y * frame.strides[plane], width * wide);
    }
    return high << 16 | low;
}

std::vector<float> sound(const std::filesystem::path& path, const std::string& options) {
    const std::string bytes = output("ffmpeg -nostdin -v quiet -i " + quoted(path) + " " + options +
                                     " -map 0:a:0 -ac 2 -ar 48000 -f f32le -");
    std::vector<float> samples(bytes.size() / sizeof(float));
    std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
    return samples;
}

}
