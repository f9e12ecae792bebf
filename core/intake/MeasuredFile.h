#pragma once

#include <filesystem>

namespace murbo {

/// A movie file that could be read, with its length in seconds.
struct MeasuredFile {
    std::filesystem::path path;
    double length = 0;
};

}
