#include "Sheet.h"

#include "core/render/captions/CaptionPicture.h"
#include "platform/base/Files.h"
#include "platform/image/Jpeg.h"
#include "platform/image/draw/Canvas.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr double gap = 8;
constexpr double lineHeight = 30;
constexpr double widestLabel = 1800;
constexpr double headHeight = 52;
constexpr Colour paper{24, 26, 32, 255};

/// A line of text round a point.
Image label(const std::string& text, double size, Point at) {
    CaptionStyle style;
    style.size = size;
    style.fill = "E8E8EC";
    style.outline = "";
    style.shadow = false;
    const auto picture =
        CaptionPicture::draw({.text = text, .style = style, .scale = 1, .width = widestLabel});
    if (!picture) return {};
    const Point middle = picture->extent().middle();
    return picture->transformed(
        Transform().translated(std::round(at.x - middle.x), std::round(at.y - middle.y)));
}

}

void Sheet::add(const Image& picture, Size frame, const std::string& name) {
    const Bitmap whole = Canvas::bitmap(picture, {0, 0, frame.width, frame.height});
    const double scale = std::min(cell.width / frame.width, cell.height / frame.height);
    const Image small = Image::bitmap(whole).transformed(Transform().scaled(scale, scale));
    rows.back().push_back({Image::bitmap(Canvas::bitmap(small, {0, 0, cell.width, cell.height})), name});
}

void Sheet::write(const std::filesystem::path& file) const {
    std::size_t columns = 0;
    for (const auto& each : rows) columns = std::max(columns, each.size());
    const Rect whole{0, 0, gap + double(columns) * (cell.width + gap),
                     headHeight + double(rows.size()) * (cell.height + lineHeight + gap)};
    Image sheet = Image::colour(paper).cropped(whole);
    sheet = label(heading, 30, {whole.width / 2, headHeight / 2}).over(sheet);
    double y = headHeight;
    for (const auto& each : rows) {
        double x = gap;
        for (const Cell& one : each) {
            sheet = one.picture.transformed(Transform().translated(x, y)).over(sheet);
            sheet = label(one.name, 18, {x + cell.width / 2, y + cell.height + lineHeight / 2}).over(sheet);
            x += cell.width + gap;
        }
        y += cell.height + lineHeight + gap;
    }
    Files::writeWhole(file, Jpeg::encode(Canvas::bitmap(sheet, whole), 0.88));
}

}
