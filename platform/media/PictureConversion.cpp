#include "platform/media/PictureConversion.h"

#include <bit>

extern "C" {
#include <libswscale/swscale.h>
}

namespace murbo::PictureConversion {

namespace {

using Layout = Frame::Layout;
using Scaler = std::unique_ptr<SwsContext, decltype([](SwsContext* held) { sws_freeContext(held); })>;

constexpr std::uint64_t unknowable = AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BITSTREAM |
                                     AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_BAYER | AV_PIX_FMT_FLAG_FLOAT |
                                     AV_PIX_FMT_FLAG_RGB;

std::optional<Layout> chroma(const AVPixFmtDescriptor& format) {
    if (format.nb_components < 3) return Layout::grey;
    const int shifts = format.log2_chroma_w * 10 + format.log2_chroma_h;
    if (shifts == 11) return Layout::chroma420;
    if (shifts == 10) return Layout::chroma422;
    return shifts == 0 ? std::optional(Layout::chroma444) : std::nullopt;
}

// Y, Cb, Cr, A each in its plane, or Y and a plane of Cb and Cr in turns.
bool isPlanar(const AVPixFmtDescriptor& format, bool interleaved) {
    const int bytes = format.comp[0].depth > 8 ? 2 : 1;
    for (int index = 0; index < format.nb_components; ++index) {
        const AVComponentDescriptor& component = format.comp[index];
        const bool shared = interleaved && index > 0;
        const int plane = shared ? 1 : index;
        const int offset = shared ? (index - 1) * bytes : 0;
        if (component.plane != plane || component.offset != offset ||
            component.step != (shared ? 2 : 1) * bytes || component.depth != format.comp[0].depth ||
            component.shift != format.comp[0].shift)
            return false;
    }
    return true;
}

bool isLittleEndian(const AVPixFmtDescriptor& format) {
    return format.comp[0].depth <= 8 || !(format.flags & AV_PIX_FMT_FLAG_BE);
}

AVPixelFormat target(const AVPixFmtDescriptor& format) {
    const bool alpha = format.flags & AV_PIX_FMT_FLAG_ALPHA;
    const bool deep = format.comp[0].depth > 8;
    if (format.flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BAYER))
        return alpha || (format.flags & AV_PIX_FMT_FLAG_PAL) ? AV_PIX_FMT_BGRA : AV_PIX_FMT_BGR0;
    if (format.nb_components < 3 && !alpha) return deep ? AV_PIX_FMT_GRAY16LE : AV_PIX_FMT_GRAY8;
    // On the way to Y'CbCr deep grey with alpha would lose its range.
    if (format.nb_components < 3) return AV_PIX_FMT_BGRA;
    if (alpha) return deep ? AV_PIX_FMT_YUVA444P12LE : AV_PIX_FMT_YUVA444P;
    if (format.log2_chroma_w == 1 && format.log2_chroma_h == 1)
        return deep ? AV_PIX_FMT_YUV420P12LE : AV_PIX_FMT_YUV420P;
    if (format.log2_chroma_w == 1 && format.log2_chroma_h == 0)
        return deep ? AV_PIX_FMT_YUV422P12LE : AV_PIX_FMT_YUV422P;
    return deep ? AV_PIX_FMT_YUV444P12LE : AV_PIX_FMT_YUV444P;
}

ffmpeg::Picture emptyLike(const AVFrame& picture, AVPixelFormat format) {
    ffmpeg::Picture made = ffmpeg::makePicture();
    if (av_frame_copy_props(made.get(), &picture) < 0) return nullptr;
    made->format = format;
    made->width = picture.width;
    made->height = picture.height;
    return av_frame_get_buffer(made.get(), 0) >= 0 ? std::move(made) : nullptr;
}

Scaler scaler(const AVFrame& from, const AVFrame& to) {
    constexpr int flags = SWS_BILINEAR | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
    return Scaler(sws_getContext(from.width, from.height, static_cast<AVPixelFormat>(from.format), to.width,
                                 to.height, static_cast<AVPixelFormat>(to.format), flags, nullptr, nullptr,
                                 nullptr));
}

// Y'CbCr stays what it is: the same range on both sides leaves the samples as they are.
void keepRange(SwsContext* context, const AVFrame& picture) {
    const int full = picture.color_range == AVCOL_RANGE_JPEG;
    const int* matrix = sws_getCoefficients(SWS_CS_DEFAULT);
    sws_setColorspaceDetails(context, matrix, full, matrix, full, 0, 1 << 16, 1 << 16);
}

}

std::optional<PictureLayout> layout(AVPixelFormat format) {
    if (format == AV_PIX_FMT_BGRA) return PictureLayout{.layout = Layout::bgra, .hasAlpha = true};
    if (format == AV_PIX_FMT_BGR0) return PictureLayout{.layout = Layout::bgra};
    const AVPixFmtDescriptor* known = av_pix_fmt_desc_get(format);
    if (!known || (known->flags & unknowable) || !isLittleEndian(*known)) return std::nullopt;
    const std::optional<Layout> layout = chroma(*known);
    const int depth = known->comp[0].depth;
    const int shift = known->comp[0].shift;
    const bool interleaved = known->nb_components == 3 && known->comp[2].plane == 1;
    const bool hasAlpha = known->flags & AV_PIX_FMT_FLAG_ALPHA;
    if (!layout || depth < 8 || depth > 16 || !isPlanar(*known, interleaved)) return std::nullopt;
    if (known->nb_components == 2 || (shift != 0 && shift != 16 - depth)) return std::nullopt;
    return PictureLayout{*layout, depth, shift != 0, interleaved, hasAlpha};
}

ffmpeg::Picture converted(ffmpeg::Picture picture) {
    const AVPixFmtDescriptor* known = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(picture->format));
    if (!known) return nullptr;
    ffmpeg::Picture made = emptyLike(*picture, target(*known));
    if (!made) return nullptr;
    const Scaler context = scaler(*picture, *made);
    if (!context) return nullptr;
    if (!(known->flags & AV_PIX_FMT_FLAG_RGB)) keepRange(context.get(), *picture);
    const int rows = sws_scale(context.get(), picture->data, picture->linesize, 0, picture->height,
                               made->data, made->linesize);
    return rows == picture->height ? std::move(made) : nullptr;
}

}
