#include "core/ai/VideoChange.h"

#include "core/ai/Brief.h"
#include "core/ai/Reply.h"
#include "platform/base/Numbers.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace murbo::VideoChange {

namespace {

constexpr double touch = 0.05;           ///< seconds; as far a trim may reach into a line
constexpr std::size_t longestGiven = 60; ///< bytes of what a model gave, in words about it
constexpr std::size_t maxReasons = 20;   ///< named one by one

std::string joined(const std::vector<std::string>& reasons) {
    const auto shown = std::min(reasons.size(), maxReasons);
    auto text = fmt::format(
        "{}", fmt::join(reasons.begin(), reasons.begin() + static_cast<std::ptrdiff_t>(shown), "; "));
    if (shown < reasons.size()) text += fmt::format("; and {} more", reasons.size() - shown);
    return text;
}

}

const Video& video(const Project& project, const UUID& id, const std::string& tag) {
    for (const auto& video : project.videos)
        if (video.id == id) return video;
    throw Problem(tag + " is gone.");
}

void apply(Project& project, const UUID& id, const std::string& tag,
           const std::function<void(Video&)>& change) {
    const auto& videos = *project.videos;
    const auto found =
        std::find_if(videos.begin(), videos.end(), [&](const Video& one) { return one.id == id; });
    if (found == videos.end()) throw Problem(tag + " is gone.");
    const auto at = static_cast<std::size_t>(found - videos.begin());
    change(project.videos.edit()[at]);
}

const Cut* playing(const Video& video, const Said::Piece& piece) {
    for (const auto& cut : video.cuts)
        if (cut.source == piece.source && !cut.generator && cut.start + touch < piece.end &&
            piece.start < cut.end - touch)
            return &cut;
    return nullptr;
}

std::string given(const nlohmann::json& value) {
    if (value.is_null()) return "(nothing)";
    auto text = Brief::oneLine(value.is_string() ? value.get<std::string>() : value.dump());
    if (text.size() > longestGiven) text = Text::beginning(text, longestGiven) + "…";
    return text;
}

std::string given(const nlohmann::json& object, const char* name) {
    return given(Reply::member(object, name));
}

std::string leftOut(const std::vector<std::string>& reasons) {
    return reasons.empty() ? "" : " Left out: " + joined(reasons) + ".";
}

std::string nothingHolds(const char* what, const std::vector<std::string>& reasons) {
    return what + joined(reasons);
}

std::optional<double> number(const nlohmann::json& value) {
    if (value.is_number()) return value.get<double>();
    if (value.is_string()) return Numbers::parse(Text::trimmed(value.get_ref<const std::string&>()));
    return std::nullopt;
}

}
