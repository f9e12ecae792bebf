#include "app/desktop/SplitterSizes.h"

#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <algorithm>

namespace murbo {
namespace {

// The widths from which the window's regions stand otherwise.
constexpr double mediumFrom = 1500;
constexpr double largeFrom = 2300;
constexpr double maxSize = 4000; ///< points

}

QString SplitterSizes::classOf(double width) {
    return width >= largeFrom ? "large" : width >= mediumFrom ? "medium" : "small";
}

std::string SplitterSizes::key(const QString& region, double width) {
    return ("splitter." + region + "." + classOf(width)).toStdString();
}

double SplitterSizes::size(const QString& region, double width) const {
    if (const auto now = held.find(key(region, width)); now != held.end()) return now->second;
    return std::clamp(SettingsStore::standard().number(key(region, width)).value_or(0), 0.0, maxSize);
}

void SplitterSizes::hold(const QString& region, double width, double size) {
    held[key(region, width)] = std::clamp(size, 1.0, maxSize);
    ++turns;
    emit changed();
}

void SplitterSizes::set(const QString& region, double width, double size) {
    held.erase(key(region, width));
    try {
        if (size > 0)
            SettingsStore::standard().set(key(region, width), std::min(size, maxSize));
        else
            SettingsStore::standard().remove(key(region, width));
    } catch (const Problem&) {
        return; // settings that can't be written: the region stays as it is
    }
    ++turns;
    emit changed();
}

}
