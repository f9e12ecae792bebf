#include "tests/Sheet.h"

#include "platform/base/Files.h"
#include "platform/image/draw/Canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include <cairo.h>
#include <gtest/gtest.h>

namespace murbo {

namespace {

constexpr int gap = 2;       // pixels between two pictures
constexpr int tolerance = 2; // levels, for libraries of another version

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

void writePng(const Bitmap& bitmap, const std::filesystem::path& file) {
    Files::createFolder(file.parent_path());
    auto copy = bitmap;
    const Surface surface(cairo_image_surface_create_for_data(copy.row(0), CAIRO_FORMAT_ARGB32, copy.width(),
                                                              copy.height(), int(copy.stride())),
                          cairo_surface_destroy);
    ASSERT_EQ(cairo_surface_write_to_png(surface.get(), file.c_str()), CAIRO_STATUS_SUCCESS) << file;
}

/// Empty where there is none.
Bitmap readPng(const std::filesystem::path& file) {
    const Surface surface(cairo_image_surface_create_from_png(file.c_str()), cairo_surface_destroy);
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return {};
    Bitmap bitmap(cairo_image_surface_get_width(surface.get()),
                  cairo_image_surface_get_height(surface.get()));
    const auto* data = cairo_image_surface_get_data(surface.get());
    const auto stride = cairo_image_surface_get_stride(surface.get());
    for (int y = 0; y < bitmap.height(); ++y)
        std::memcpy(bitmap.row(y), data + std::ptrdiff_t(y) * stride, 4 * std::size_t(bitmap.width()));
    return bitmap;
}

/// The most by which two pictures differ in a rectangle, and where; 0 where they are near enough.
int difference(const Bitmap& one, int left, int top, const Bitmap& other, std::string& where) {
    int most = 0;
    for (int y = 0; y < other.height(); ++y)
        for (int x = 0; x < 4 * other.width(); ++x) {
            const bool beyond = top + y >= one.height() || left + x / 4 >= one.width();
            const int away = beyond ? 255 : std::abs(one.row(top + y)[4 * left + x] - other.row(y)[x]);
            if (away > std::max(most, tolerance)) {
                most = away;
                where = std::to_string(x / 4) + ", " + std::to_string(y);
            }
        }
    return most;
}

}

void Sheet::add(std::string cell, const Image& picture, Size frame, double smaller) {
    const Rect small{0, 0, std::round(frame.width / smaller), std::round(frame.height / smaller)};
    const Image shown = picture.transformed(Transform().scaled(1 / smaller, 1 / smaller));
    cells.push_back(
        {std::move(cell), Canvas::bitmap(shown.over(Image::colour({90, 90, 90}).cropped(small)), small)});
}

template <typename Visit>
void Sheet::visit(Visit visit) const {
    int left = 0, top = 0, height = 0;
    for (std::size_t at = 0; at < cells.size(); ++at) {
        if (at % columns == 0) left = 0, top += std::exchange(height, 0) + (at ? gap : 0);
        visit(cells[at], left, top);
        left += cells[at].picture.width() + gap;
        height = std::max(height, cells[at].picture.height());
    }
}

Bitmap Sheet::whole() const {
    int width = 1, height = 1;
    visit([&](const Cell& cell, int left, int top) {
        width = std::max(width, left + cell.picture.width());
        height = std::max(height, top + cell.picture.height());
    });
    Bitmap all(width, height);
    visit([&](const Cell& cell, int left, int top) {
        for (int y = 0; y < cell.picture.height(); ++y)
            std::memcpy(all.row(top + y) + 4 * left, cell.picture.row(y),
                        4 * std::size_t(cell.picture.width()));
    });
    return all;
}

void Sheet::expectApproved() const {
    const auto file = std::filesystem::path(MURBO_TESTS) / name;
    if (std::getenv("MURBO_RENEW")) writePng(whole(), file);
    const Bitmap approved = readPng(file);
    bool differs = false;
    visit([&](const Cell& cell, int left, int top) {
        std::string where;
        const int levels = difference(approved, left, top, cell.picture, where);
        differs |= levels > 0;
        EXPECT_EQ(levels, 0) << cell.name << " is not as in " << name << ", first most at " << where;
    });
    if (!differs) return;
    const auto now = std::filesystem::temp_directory_path() / file.filename();
    writePng(whole(), now);
    ADD_FAILURE() << "It is now " << now << ". Where that is meant: ./dev approve";
}

Image pattern(int width, int height) {
    Bitmap bitmap(width, height);
    const int square = std::max(width, height) / 7;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            auto* pixel = bitmap.row(y) + 4 * x;
            pixel[0] = (x / square + y / square) % 2 ? 200 : 60;
            pixel[1] = std::uint8_t(255 * y / height);
            pixel[2] = std::uint8_t(255 * x / width);
            pixel[3] = 255;
        }
    return Image::bitmap(bitmap);
}

}
