#pragma once

#include "platform/image/Geometry.h"
#include "platform/image/Tile.h"

#include <memory>
#include <optional>
#include <vector>

namespace murbo {

struct PictureSource;

/// Changes `count` pixels of row y in place, the first of them at x.
using ChangeRow = std::function<void(int x, int y, int count, std::uint8_t* pixels)>;

/// What can be done to all of a picture at once: any of the kinds in `filters/`, as a value. Lengths are in
/// the pixels of the picture that is filtered: they grow and shrink with it.
///
/// A kind is a plain record. It must have `clamped`, and `row` (where it changes pixels in place) or `draw`;
/// the other functions below where its answer is not the one given here.
class Filter {
public:
    static constexpr double maxLength = 4096; ///< of what filters measure, in pixels

    template <typename Kind>
    requires requires(const Kind& kind, const Rect& body) {
        { kind.clamped(body) } -> std::same_as<std::optional<Kind>>;
    }
    Filter(Kind kind) : self(std::make_shared<const Of<Kind>>(std::move(kind))) {}

    /// The filter within what can be drawn; nothing where it would change nothing of a picture with that body
    /// (see ImageNode), or its numbers are none.
    std::optional<Filter> clamped(const Rect& body) const { return self->clamped(body); }
    /// How far colour can spread, in the picture's pixels: by default not at all.
    double reach() const { return self->reach(); }
    /// Whether each pixel follows from itself alone, wherever it lies: by default not.
    bool byPixel() const { return self->byPixel(); }
    /// Whether what is opaque stays so: by default where nothing spreads.
    bool keepsOpaque() const { return self->keepsOpaque(); }
    /// Whether it may be applied after averaging as well, as weighted sums may: by default not.
    bool sumsColours() const { return self->sumsColours(); }
    /// Whether `draw` applies rows that sum colours on a coarser grid than the canvas: by default not.
    bool drawsCoarsely(const Transform& place) const { return self->drawsCoarsely(place); }

    /// How it changes pixels in place; nothing where it does not. `body` is where the picture lies, `bounds`
    /// all that will be asked.
    ChangeRow row(const Rect& body, const PixelRect& bounds) const { return self->row(body, bounds); }
    /// Prepared to draw any part of `bounds` of what it makes of a source, with each of `rows` applied.
    /// `place` leads from the source's space to the canvas, scaled and moved only.
    DrawTile draw(const PictureSource& source, const Transform& place, const PixelRect& bounds,
                  const std::vector<ChangeRow>& rows = {}) const {
        return self->draw(source, place, bounds, rows);
    }

private:
    struct Interface {
        virtual ~Interface() = default;
        virtual std::optional<Filter> clamped(const Rect& body) const = 0;
        virtual double reach() const = 0;
        virtual bool byPixel() const = 0;
        virtual bool keepsOpaque() const = 0;
        virtual bool sumsColours() const = 0;
        virtual bool drawsCoarsely(const Transform& place) const = 0;
        virtual ChangeRow row(const Rect& body, const PixelRect& bounds) const = 0;
        virtual DrawTile draw(const PictureSource& source, const Transform& place, const PixelRect& bounds,
                              const std::vector<ChangeRow>& rows) const = 0;
    };
    template <typename Kind>
    struct Of final : Interface {
        explicit Of(Kind given) : kind(std::move(given)) {}

        std::optional<Filter> clamped(const Rect& body) const override { return kind.clamped(body); }
        double reach() const override {
            if constexpr (requires { kind.reach(); }) return kind.reach();
            return 0;
        }
        bool byPixel() const override {
            if constexpr (requires { kind.byPixel(); }) return kind.byPixel();
            return false;
        }
        bool keepsOpaque() const override {
            if constexpr (requires { kind.keepsOpaque(); }) return kind.keepsOpaque();
            return reach() == 0;
        }
        bool sumsColours() const override {
            if constexpr (requires { kind.sumsColours(); }) return kind.sumsColours();
            return false;
        }
        bool drawsCoarsely(const Transform& place) const override {
            if constexpr (requires { kind.drawsCoarsely(place); }) return kind.drawsCoarsely(place);
            return false;
        }
        ChangeRow row(const Rect& body, const PixelRect& bounds) const override {
            if constexpr (requires { kind.row(body, bounds); }) return kind.row(body, bounds);
            return {};
        }
        DrawTile draw(const PictureSource& source, const Transform& place, const PixelRect& bounds,
                      const std::vector<ChangeRow>& rows) const override {
            if constexpr (requires { kind.draw(source, place, bounds, rows); })
                return kind.draw(source, place, bounds, rows);
            else if constexpr (requires { kind.draw(source, place, bounds); })
                return kind.draw(source, place, bounds);
            return {};
        }

        Kind kind;
    };

    std::shared_ptr<const Interface> self;
};

}
