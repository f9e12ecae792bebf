#include "platform/media/FrameView.h"

#include "platform/media/PictureConversion.h"

#include <bit>

namespace murbo::FrameView {

namespace {

// A header may claim any aspect; beyond this it is a fault.
constexpr double widestPixel = 8;

int quarterTurns(const AVStream* stream) {
    std::size_t size = 0;
    const std::uint8_t* data = av_stream_get_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
    if (!data || size < 9 * sizeof(std::int32_t)) return 0;
    std::array<std::int32_t, 9> matrix{};
    std::memcpy(matrix.data(), data, sizeof matrix);
    const auto is = [&](int a, int b, int c, int d) {
        const auto near = [&](int index, int wanted) {
            return std::abs(matrix[index] / 65536.0 - wanted) < 0.02;
        };
        return near(0, a) && near(1, b) && near(3, c) && near(4, d);
    };
    return is(0, 1, -1, 0) ? 1 : is(-1, 0, 0, -1) ? 2 : is(0, -1, 1, 0) ? 3 : 0;
}

double pixelAspect(AVFormatContext* format, AVStream* stream) {
    const AVRational ratio = av_guess_sample_aspect_ratio(format, stream, nullptr);
    const double aspect = ratio.num > 0 && ratio.den > 0 ? av_q2d(ratio) : 1;
    return aspect >= 1 / widestPixel && aspect <= widestPixel ? aspect : 1;
}

bool isFullRange(const AVFrame& picture, AVCodecID codec) {
    if (picture.color_range != AVCOL_RANGE_UNSPECIFIED) return picture.color_range == AVCOL_RANGE_JPEG;
    const std::string_view format = av_get_pix_fmt_name(static_cast<AVPixelFormat>(picture.format));
    return format.starts_with("yuvj") || codec == AV_CODEC_ID_MJPEG || codec == AV_CODEC_ID_PNG;
}

// Untagged pictures: small ones come from the days of BT.601, as every player takes it.
Frame::Matrix matrixBySize(const AVFrame& picture) {
    const bool large = picture.width >= 1280 || picture.height > 576;
    return large ? Frame::Matrix::bt709 : Frame::Matrix::bt601;
}

Frame::Matrix matrix(const AVFrame& picture) {
    switch (picture.colorspace) {
        case AVCOL_SPC_BT709:
        case AVCOL_SPC_SMPTE240M:
            return Frame::Matrix::bt709;
        case AVCOL_SPC_BT470BG:
        case AVCOL_SPC_SMPTE170M:
        case AVCOL_SPC_FCC:
            return Frame::Matrix::bt601;
        case AVCOL_SPC_BT2020_NCL:
        case AVCOL_SPC_BT2020_CL:
            return Frame::Matrix::bt2020;
        default:
            break;
    }
    const bool wide = picture.color_primaries == AVCOL_PRI_BT2020 || isHighDynamicRange(picture.color_trc);
    return wide ? Frame::Matrix::bt2020 : matrixBySize(picture);
}

Frame::Transfer transfer(const AVFrame& picture) {
    if (picture.color_trc == AVCOL_TRC_ARIB_STD_B67) return Frame::Transfer::hlg;
    return picture.color_trc == AVCOL_TRC_SMPTE2084 ? Frame::Transfer::pq : Frame::Transfer::sdr;
}

Frame::Primaries primaries(const AVFrame& picture) {
    const bool untaggedWide =
        picture.color_primaries == AVCOL_PRI_UNSPECIFIED && (matrix(picture) == Frame::Matrix::bt2020);
    const bool wide = picture.color_primaries == AVCOL_PRI_BT2020 || untaggedWide;
    return wide ? Frame::Primaries::bt2020 : Frame::Primaries::bt709;
}

Frame::ChromaSite chromaSite(const AVFrame& picture, AVCodecID codec) {
    switch (picture.chroma_location) {
        case AVCHROMA_LOC_CENTER:
            return Frame::ChromaSite::centre;
        case AVCHROMA_LOC_TOPLEFT:
            return Frame::ChromaSite::topLeft;
        case AVCHROMA_LOC_UNSPECIFIED:
            break;
        default:
            return Frame::ChromaSite::left;
    }
    const bool centred = codec == AV_CODEC_ID_MJPEG || codec == AV_CODEC_ID_MPEG1VIDEO ||
                         codec == AV_CODEC_ID_VP8 || codec == AV_CODEC_ID_THEORA;
    return centred ? Frame::ChromaSite::centre : Frame::ChromaSite::left;
}

void setColour(Frame& frame, const AVFrame& picture, AVCodecID codec) {
    frame.fullRange = isFullRange(picture, codec);
    frame.matrix = matrix(picture);
    frame.transfer = transfer(picture);
    frame.primaries = primaries(picture);
    frame.chromaSite = chromaSite(picture, codec);
}

void pointInto(Frame& frame, const AVFrame& picture) {
    // Grey with alpha would stand in a plane of its own number; such layouts are converted before.
    for (int index = 0; index < 4; ++index) {
        frame.planes[index] = picture.data[index];
        frame.strides[index] = picture.linesize[index];
    }
}

}

PictureTraits traits(AVFormatContext* format, AVStream* stream) {
    return {quarterTurns(stream), pixelAspect(format, stream), stream->codecpar->codec_id};
}

bool isHighDynamicRange(AVColorTransferCharacteristic curve) {
    return curve == AVCOL_TRC_ARIB_STD_B67 || curve == AVCOL_TRC_SMPTE2084;
}

std::optional<Frame> of(ffmpeg::Picture picture, const PictureTraits& traits) {
    std::optional<PictureLayout> layout =
        PictureConversion::layout(static_cast<AVPixelFormat>(picture->format));
    if (!layout) {
        picture = PictureConversion::converted(std::move(picture));
        if (!picture) return std::nullopt;
        layout = PictureConversion::layout(static_cast<AVPixelFormat>(picture->format));
    }
    if (!layout || picture->width <= 0 || picture->height <= 0 || !picture->data[0]) return std::nullopt;
    Frame frame;
    frame.width = picture->width;
    frame.height = picture->height;
    frame.layout = layout->layout;
    frame.depth = layout->depth;
    frame.highBits = layout->highBits;
    frame.interleavedChroma = layout->interleavedChroma;
    frame.hasAlpha = layout->hasAlpha;
    frame.turn = traits.quarterTurns;
    frame.pixelAspect = traits.pixelAspect;
    setColour(frame, *picture, traits.codec);
    pointInto(frame, *picture);
    frame.keeper = std::shared_ptr<const AVFrame>(std::move(picture));
    return frame;
}

}
