#include "platform/text/Fonts.h"

#include "platform/base/CommaList.h"
#include "platform/text/FontSet.h"
#include "platform/text/Unicode.h"

namespace murbo::Fonts {

namespace {

/// The platform scale of weights: a trait of 0 to 1 above regular, and the CSS number of the same face.
struct Weight {
    double trait;
    int number;
};
constexpr std::array<Weight, 7> scale{
    {{0, 400}, {0.23, 500}, {0.3, 600}, {0.4, 700}, {0.56, 800}, {0.62, 900}, {1, 1000}}};

int weightNumber(double weight) {
    if (!(weight > 0)) return scale.front().number;
    for (std::size_t step = 1; step < scale.size(); ++step) {
        const auto [from, low] = scale[step - 1];
        const auto [to, high] = scale[step];
        if (weight <= to) return int(std::lround(low + (weight - from) / (to - from) * (high - low)));
    }
    return scale.back().number;
}

}

Font font(std::string_view list, double weight, double size) {
    Font font{{}, weightNumber(weight), size};
    for (const auto entry : CommaList::entries(list))
        if (const auto name = Unicode::trimmed(entry); installed(name)) font.families.emplace_back(name);
    return font;
}

bool installed(std::string_view family) {
    return FontSet::shared().find(family) != nullptr;
}

std::vector<std::string> families() {
    std::vector<std::string> names;
    for (const auto& [lower, family] : FontSet::shared().families()) names.push_back(family.name);
    return names;
}

}
