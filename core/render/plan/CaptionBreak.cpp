#include "core/render/plan/CaptionBreak.h"

#include "core/render/plan/CaptionText.h"

#include <algorithm>
#include <mutex>
#include <numeric>
#include <unordered_map>

namespace murbo {
namespace {

constexpr std::size_t maxKept = 4'000'000; ///< bytes of text

struct KeptBreaks {
    std::mutex lock; ///< guards what follows
    std::unordered_map<std::string, std::shared_ptr<const CaptionBreak>> byText;
    std::size_t bytes = 0;
};

KeptBreaks& kept() {
    static KeptBreaks all;
    return all;
}

}

std::vector<double> CaptionBreak::byLength(const std::vector<std::string>& texts) {
    std::vector<double> counts;
    for (const std::string& text : texts) counts.push_back(static_cast<double>(CaptionText::count(text)));
    const double total = std::max(std::accumulate(counts.begin(), counts.end(), 0.0), 1.0);
    std::partial_sum(counts.begin(), counts.end(), counts.begin());
    for (double& count : counts) count /= total;
    return counts;
}

std::shared_ptr<const CaptionBreak> CaptionBreak::of(const std::string& text, std::int64_t max) {
    const auto name = std::to_string(max) + " " + text;
    auto& known = kept();
    {
        const std::lock_guard hold(known.lock);
        if (const auto found = known.byText.find(name); found != known.byText.end()) return found->second;
    }
    auto made = std::make_shared<CaptionBreak>();
    made->texts = CaptionText::pieces(text, max);
    made->shares = byLength(made->texts);
    const std::lock_guard hold(known.lock);
    if (known.bytes + name.size() > maxKept) {
        known.byText.clear();
        known.bytes = 0;
    }
    if (name.size() <= maxKept && known.byText.emplace(name, made).second) known.bytes += name.size();
    return made;
}

}
