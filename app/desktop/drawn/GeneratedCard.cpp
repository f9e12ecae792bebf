#include "app/desktop/drawn/GeneratedCard.h"

#include "core/model/Project.h"
#include "core/model/Settings.h"
#include "core/render/PlanBox.h"
#include "core/render/Renderer.h"
#include "platform/image/draw/Bands.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace murbo {

int GeneratedCard::number(const Cut& cut, Video::Aspect aspect) {
    std::string words = std::to_string(static_cast<int>(aspect)) + "|" + std::to_string(cut.length());
    if (cut.generator) {
        words += "|" + cut.generator->playbook + "|" + std::to_string(cut.generator->version);
        for (const auto& [name, value] : cut.generator->values.value_or(Values()))
            words += "|" + name + "=" + value;
    }
    constexpr auto most = static_cast<std::size_t>(std::numeric_limits<int>::max());
    return -static_cast<int>(std::hash<std::string>()(words) % (most - 1)) - 1;
}

Bitmap GeneratedCard::draw(int width) const {
    Video video;
    video.aspect = aspect;
    video.cuts.edit() = {cut};
    PlanBox box(Plan::video(video, Project(), Settings::captionFonts(), package));
    const auto frame = Renderer::render(std::nullopt, std::nullopt, *box.plan(), cut.length() / 2,
                                        box.captions(), box.media());
    const auto size = box.plan()->frame;
    const double scale = width / size.width;
    Bitmap target(width, std::max(static_cast<int>(std::lround(size.height * scale)), 1));
    Bands::draw(frame.transformed(Transform().scaled(scale, scale)), target);
    return target;
}

}
