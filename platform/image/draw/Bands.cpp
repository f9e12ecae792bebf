#include "platform/image/draw/Bands.h"

#include "platform/image/draw/Canvas.h"

#include <algorithm>
#include <future>
#include <thread>
#include <vector>

namespace murbo::Bands {
namespace {

constexpr int bandRows = 128; // enough rows that a thread is worth its start

}

void draw(const Image& image, Bitmap& target) {
    const int max = static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
    const int bands = std::clamp(target.height() / bandRows, 1, max);
    const auto top = [&](int band) { return target.height() * band / bands; };
    std::vector<std::future<void>> others;
    for (int band = 1; band < bands; ++band) {
        others.push_back(
            std::async(std::launch::async, [&image, &target, from = top(band), to = top(band + 1)] {
                Canvas::draw(image, target, from, to);
            }));
    }
    Canvas::draw(image, target, 0, top(1));
    for (auto& other : others) other.get();
}

}
