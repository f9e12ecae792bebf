#include "core/model/CaptionPresets.h"

#include <algorithm>

namespace murbo::CaptionPresets {
namespace {

constexpr const char* bottom = "pop";
constexpr int deepest = 7;

template <class Styles>
const CaptionStyle* find(const Styles& styles, const std::string& id) {
    const auto found =
        std::find_if(styles.begin(), styles.end(), [&](const auto& one) { return one.id == id; });
    return found == styles.end() ? nullptr : &*found;
}

const CaptionStyle& pop() {
    return CaptionStyle::builtIn().front();
}

}

std::vector<CaptionStyle> of(const Project& project) {
    std::vector<CaptionStyle> presets;
    for (const auto& preset : CaptionStyle::builtIn()) {
        const auto* own = find(project.styles, *preset.id);
        presets.push_back(own ? *own : preset);
    }
    for (const auto& style : project.styles)
        if (!style.id || !find(CaptionStyle::builtIn(), *style.id)) presets.push_back(style);
    return presets;
}

CaptionStyle resolved(const Project& project, const std::optional<std::string>& id, int depth) {
    const auto wanted = id.value_or(bottom);
    const auto* preset = find(project.styles, wanted);
    if (!preset) preset = find(CaptionStyle::builtIn(), wanted);
    if (!preset) return pop();
    if (wanted == bottom || depth > deepest) return preset->over(pop());
    return preset->over(resolved(project, preset->base.value_or(bottom), depth + 1));
}

CaptionStyle style(const Project& project, const Video& video) {
    const auto whole = project.captionStyle.value_or(CaptionStyle{});
    const auto beneath = whole.over(resolved(project, whole.base));
    if (!video.look || !video.look->captions.style) return beneath;
    const auto& own = *video.look->captions.style;
    return own.over(own.base ? resolved(project, own.base) : beneath);
}

}
