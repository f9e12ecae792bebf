#pragma once

#include "platform/base/UUID.h"

#include <QColor>
#include <QRectF>
#include <QString>
#include <filesystem>
#include <variant>
#include <vector>

namespace murbo {

/// What a view is made of, back to front, in points: rectangles and pictures alone, which every renderer of
/// Qt Quick draws.
struct DrawList {
    struct Patch {
        QRectF rect;
        QColor colour;
        bool operator==(const Patch&) const = default;
    };
    /// A line of text, cut off at the right end of its rectangle.
    struct Label {
        QRectF rect;
        QString text;
        QColor colour;
        bool ellipsis = true; ///< else it is cut between two letters
        bool bold = false;
        bool operator==(const Label&) const = default;
    };
    /// A still of a source at a second of it, filling a place `width` points wide of which `rect` shows the
    /// part that begins `skip` points from its left.
    struct Still {
        QRectF rect;
        UUID source;
        int second = 0;
        double width = 0;
        double skip = 0;
        bool operator==(const Still&) const = default;
    };
    /// The picture of a file, filling its place.
    struct FilePicture {
        QRectF rect;
        std::filesystem::path file;
        bool operator==(const FilePicture&) const = default;
    };
    /// How loud a source is, or a file of sound, from one second of it to another.
    struct Wave {
        QRectF rect;
        UUID source;
        double from = 0;
        double to = 0;
        QColor colour;
        std::filesystem::path file = {}; ///< instead of a source
        bool operator==(const Wave&) const = default;
    };
    /// One of the icons, by its name.
    struct Symbol {
        QRectF rect;
        QString name;
        QColor colour;
        bool operator==(const Symbol&) const = default;
    };
    /// Slanting stripes in the place of what is not there or not shown, at most `stripesWidth` points wide.
    /// They repeat each `stripeStep` points: what is cut there meets without a seam.
    struct Stripes {
        QRectF rect;
        QColor colour;
        bool operator==(const Stripes&) const = default;
    };
    static constexpr int stripeStep = 8;
    static constexpr int stripesWidth = 256;
    using Item = std::variant<Patch, Label, Still, Wave, FilePicture, Symbol, Stripes>;

    std::vector<Item> items;

    void fill(const QRectF& rect, const QColor& colour) {
        if (rect.width() > 0 && rect.height() > 0) items.emplace_back(Patch{rect, colour});
    }
    void frame(const QRectF& rect, double thick, const QColor& colour);
    void moveBy(double x, double y);
    /// A rectangle with its sides on whole pixels, `ratio` of them to a point, and none thinner than one: the
    /// software renderer leaves out what only covers parts of pixels. Thin sides lie on whole points.
    static QRectF onPixels(const QRectF& rect, double ratio);
    bool operator==(const DrawList&) const = default;
};

}
