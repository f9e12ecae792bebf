#include "platform/media/PictureFile.h"

#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/image/draw/Canvas.h"
#include "platform/media/FrameReader.h"
#include "platform/media/FrameView.h"
#include "platform/media/PictureBytes.h"

#include <cmath>

#include <fmt/format.h>

namespace murbo::PictureFile {

namespace {

using Kind = PictureHeader::Kind;

/// What a bitmap can hold: transparency is worked into the colours before the picture is made smaller.
constexpr double longestClear = 32768;

AVCodecID coding(Kind kind) {
    switch (kind) {
        case Kind::png:
            return AV_CODEC_ID_PNG;
        case Kind::jpeg:
            return AV_CODEC_ID_MJPEG;
        case Kind::gif:
            return AV_CODEC_ID_GIF;
        case Kind::webp:
            return AV_CODEC_ID_WEBP;
        case Kind::bmp:
            return AV_CODEC_ID_BMP;
        case Kind::avif:
            break;
    }
    return AV_CODEC_ID_NONE;
}

std::string quoted(const std::filesystem::path& path) {
    return "“" + path.filename().string() + "”";
}

[[noreturn]] void unreadable(const std::filesystem::path& path) {
    throw Problem(quoted(path) + " holds no picture that can be read.");
}

void refuseTooLarge(const std::filesystem::path& path, double width, double height, bool clear = false) {
    if (width * height > double(maxPixels) || (clear && std::max(width, height) > longestClear))
        throw Problem(fmt::format("{} is too large: {} × {} pixels.", quoted(path), width, height));
}

ffmpeg::CodecContext opened(Kind kind) {
    const AVCodec* decoder = avcodec_find_decoder(coding(kind));
    ffmpeg::CodecContext codec(decoder ? avcodec_alloc_context3(decoder) : nullptr);
    if (!codec) return nullptr;
    codec->max_pixels = maxPixels;
    codec->thread_count = 1;
    return avcodec_open2(codec.get(), decoder, nullptr) >= 0 ? std::move(codec) : nullptr;
}

/// A packet of bytes that are not copied: they must outlive it, and be followed by the padding that decoders
/// ask for.
ffmpeg::Packet packetOf(std::string& bytes) {
    ffmpeg::Packet packet = ffmpeg::makePacket();
    const auto size = static_cast<int>(bytes.size());
    bytes.append(AV_INPUT_BUFFER_PADDING_SIZE, '\0');
    packet->data = reinterpret_cast<std::uint8_t*>(bytes.data());
    packet->size = size;
    packet->buf = av_buffer_create(
        packet->data, bytes.size(), [](void*, std::uint8_t*) {}, nullptr, 0);
    return packet;
}

/// Null where no picture comes of the bytes.
ffmpeg::Picture decoded(Kind kind, std::string& bytes) {
    const ffmpeg::CodecContext codec = opened(kind);
    ffmpeg::Picture picture = ffmpeg::makePicture();
    const ffmpeg::Packet packet = packetOf(bytes);
    if (!codec || avcodec_send_packet(codec.get(), packet.get()) < 0) return nullptr;
    avcodec_send_packet(codec.get(), nullptr);
    return avcodec_receive_frame(codec.get(), picture.get()) == 0 ? std::move(picture) : nullptr;
}

// Single pictures are of full range but for WebP's, which are small videos of one picture.
void setColours(AVFrame& picture, Kind kind) {
    const bool video = kind == Kind::webp;
    if (picture.color_range == AVCOL_RANGE_UNSPECIFIED)
        picture.color_range = video ? AVCOL_RANGE_MPEG : AVCOL_RANGE_JPEG;
    if (picture.colorspace == AVCOL_SPC_UNSPECIFIED) picture.colorspace = AVCOL_SPC_BT470BG;
}

struct Upright {
    Frame frame;
    bool mirrored = false; ///< left and right, once it is turned
};

Upright decodedFile(const std::filesystem::path& path, Kind kind) {
    // Turned clockwise, then mirrored: what each Exif orientation asks for.
    static constexpr std::array<int, 9> turns{0, 0, 0, 2, 2, 1, 1, 3, 3};
    auto [bytes, orientation] = PictureBytes::of(kind, Files::readWhole(path, maxBytes));
    ffmpeg::Picture picture = bytes.empty() ? nullptr : decoded(kind, bytes);
    if (!picture) unreadable(path);
    setColours(*picture, kind);
    const bool mirrored = orientation == 2 || orientation == 4 || orientation == 5 || orientation == 7;
    auto frame = FrameView::of(std::move(picture), {turns[orientation], 1, coding(kind)});
    if (!frame) unreadable(path);
    refuseTooLarge(path, frame->width, frame->height, frame->hasAlpha);
    return {*frame, mirrored};
}

/// Of the kinds that are stored as a movie of one picture.
Upright firstOfMovie(const std::filesystem::path& path) {
    FrameReader reader = FrameReader::open(path, FrameReader::Purpose::stills);
    if (const auto& picture = reader.facts().picture)
        refuseTooLarge(path, picture->size.width, picture->size.height);
    const auto first = reader.at(0);
    if (!first) unreadable(path);
    refuseTooLarge(path, first->frame.width, first->frame.height, first->frame.hasAlpha);
    return {first->frame, false};
}

Bitmap drawn(const Upright& upright, double maxKept) {
    const Size size = upright.frame.uprightSize();
    const double scale = std::min(1.0, std::sqrt(maxKept / (size.width * size.height)));
    // A side is one pixel at least, and the other then as many as are kept at most.
    const auto side = [&](double length, double other) {
        const double scaled = std::max(1.0, std::round(length * scale));
        return other * scale < 1 ? std::min(scaled, std::max(1.0, std::floor(maxKept))) : scaled;
    };
    const double width = side(size.width, size.height);
    const double height = side(size.height, size.width);
    Transform fitted = Transform().scaled(width / size.width, height / size.height);
    if (upright.mirrored) fitted = fitted.scaled(-1, 1).translated(width, 0);
    return Canvas::bitmap(Image::frame(upright.frame).clamped().transformed(fitted), {0, 0, width, height});
}

}

Bitmap read(const std::filesystem::path& path, double maxKept) {
    ffmpeg::quiet();
    const auto header = PictureHeader::read(path);
    if (!header) unreadable(path);
    refuseTooLarge(path, double(header->width), double(header->height));
    return drawn(header->kind == Kind::avif ? firstOfMovie(path) : decodedFile(path, header->kind), maxKept);
}

}
