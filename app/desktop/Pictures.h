#pragma once

#include "app/options/Arguments.h"

#include <QSize>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// Pictures of the window, taken without anybody at it.
namespace Pictures {

struct WindowPicture {
    std::filesystem::path folder;
    std::string view = "timeline"; ///< what the window shows
    QSize size{1280, 800};
};

/// What the words ask for; nothing without "--pictures".
std::optional<WindowPicture> asked(const Arguments& arguments);

/// Opens the first project, or the start window, brings the view up, and writes "<view>-<width>x<height>.png"
/// into the folder. Throws a Problem where that can't be done.
void take(const WindowPicture& order, const std::vector<std::filesystem::path>& projects);

}

}
