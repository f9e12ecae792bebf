#pragma once

#include "platform/image/Image.h"

#include <filesystem>
#include <string>
#include <vector>

namespace murbo {

/// A contact sheet: small pictures in rows, each with a name under it, written as one JPEG file.
class Sheet {
public:
    /// `title` stands above, `cell` is the size of each picture in pixels.
    Sheet(std::string title, Size each) : heading(std::move(title)), cell(each) {}

    /// Begins the next row.
    void row() { rows.emplace_back(); }
    /// Adds a picture to the row, drawn whole at its own size first, as an export would, and then made small.
    void add(const Image& picture, Size frame, const std::string& name);

    /// Throws Problem where the file can't be written.
    void write(const std::filesystem::path& file) const;

private:
    struct Cell {
        Image picture;
        std::string name;
    };

    std::string heading;
    Size cell;
    std::vector<std::vector<Cell>> rows;
};

}
