#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Image.h"

#include <cstddef>
#include <string>
#include <vector>

namespace murbo {

/// Small pictures, compared with the sheet of them that was looked at and approved before. Where a change
/// is meant, `./dev approve` takes the new sheet, to be looked at beside the old one.
class Sheet {
public:
    /// `file` is below tests/: "stage/approved/stock.png". `inRow` pictures stand in a row.
    Sheet(std::string file, std::size_t inRow) : name(std::move(file)), columns(inRow) {}

    /// Adds a frame, drawn `smaller` than it is by that factor, on grey. A difference names it by `cell`.
    void add(std::string cell, const Image& picture, Size frame, double smaller = 15);

    void expectApproved() const;

private:
    struct Cell {
        std::string name;
        Bitmap picture;
    };
    Bitmap whole() const;
    template <typename Visit>
    void visit(Visit visit) const;

    std::string name;
    std::size_t columns;
    std::vector<Cell> cells;
};

/// A picture in which each place looks its own: red grows to the right, green downward, over a chequer.
Image pattern(int width, int height);

}
