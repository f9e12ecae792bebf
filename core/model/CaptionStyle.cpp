#include "core/model/CaptionStyle.h"

namespace murbo {
namespace {

CaptionStyle pop() {
    CaptionStyle style;
    style.id = "pop";
    style.name = "Pop";
    style.weight = 0.56;
    style.size = 84;
    style.fill = "FFFFFF";
    style.outline = "000000";
    style.stroke = 30;
    style.shadow = false;
    style.pill = "";
    style.bigScale = 1.7;
    style.bigFill = "";
    style.y = 0.3;
    style.seam = true;
    style.most = 24;
    style.motion = "pop";
    style.upper = false;
    return style;
}

CaptionStyle clean() {
    CaptionStyle style;
    style.id = "clean";
    style.name = "Clean";
    style.weight = 0.4;
    style.size = 62;
    style.outline = "";
    style.shadow = true;
    style.bigScale = 1.3;
    style.y = 0.7;
    style.seam = false;
    style.most = 30;
    style.motion = "fade";
    return style;
}

CaptionStyle bold() {
    CaptionStyle style;
    style.id = "bold";
    style.name = "Bold Keyword";
    style.weight = 0.62;
    style.size = 96;
    style.outline = "000000";
    style.stroke = 24;
    style.bigScale = 1.45;
    style.bigFill = "FFD60A";
    style.most = 12;
    style.motion = "words";
    return style;
}

CaptionStyle story() {
    CaptionStyle style;
    style.id = "story";
    style.name = "Story";
    style.size = 78;
    style.outline = "FF5FA2";
    style.stroke = 34;
    style.bigScale = 2.2;
    style.y = 0.5;
    style.seam = false;
    style.most = 18;
    style.motion = "rise";
    return style;
}

CaptionStyle boxed() {
    CaptionStyle style;
    style.id = "boxed";
    style.name = "Boxed";
    style.weight = 0.4;
    style.size = 64;
    style.fill = "111111";
    style.outline = "";
    style.pill = "FFFFFF";
    style.bigScale = 1.35;
    style.bigFill = "E0245E";
    style.y = 0.66;
    style.seam = false;
    style.most = 26;
    style.motion = "pop";
    return style;
}

}

const std::array<CaptionStyle, 5>& CaptionStyle::builtIn() {
    static const std::array<CaptionStyle, 5> presets{pop(), clean(), bold(), story(), boxed()};
    return presets;
}

CaptionStyle CaptionStyle::over(const CaptionStyle& beneath) const {
    CaptionStyle merged = *this;
    const auto inherit = [&](const auto& field) {
        if (!(merged.*field.member)) merged.*field.member = beneath.*field.member;
    };
    fields([&](const auto&... field) { (inherit(field), ...); });
    return merged;
}

}
