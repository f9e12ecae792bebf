#include "Scene.h"

#include "core/model/Project.h"
#include "core/render/Stills.h"
#include "platform/base/Numbers.h"
#include "platform/base/Problem.h"

#include <filesystem>

namespace murbo {
namespace {

std::vector<std::string> split(const std::string& text, char at) {
    std::vector<std::string> parts;
    for (std::size_t from = 0;;) {
        const std::size_t to = text.find(at, from);
        parts.push_back(text.substr(from, to - from));
        if (to == std::string::npos) return parts;
        from = to + 1;
    }
}

double number(const std::string& text) {
    const auto value = Numbers::parse(text);
    if (!value) throw Problem("“" + text + "” is no number.");
    return *value;
}

Box box(const std::string& text) {
    const auto parts = split(text, ',');
    if (parts.size() != 4) throw Problem("A box is x,y,w,h, not “" + text + "”.");
    return {number(parts[0]), number(parts[1]), number(parts[2]), number(parts[3])};
}

}

Scene::Scene(const std::string& given) {
    const auto parts = split(given, '@');
    if (parts.size() < 2) throw Problem("Footage is given as FILE@SECONDS, not “" + given + "”.");
    from = number(parts[1]);
    Source source;
    source.path = std::filesystem::absolute(parts[0]).string();
    source.length = from + length;
    source.framing.emplace();
    if (parts.size() > 2) source.framing->content = box(parts[2]);
    if (parts.size() > 3) source.framing->face = box(parts[3]);
    Cut cut;
    cut.source = source.id;
    cut.start = from;
    cut.end = from + length;
    project.sources.edit().push_back(source);
    video.cuts.edit().push_back(cut);
    video.look.emplace();
    plain = Plan::video(video, project, "", std::nullopt);
}

Plan Scene::filled() const {
    Plan plan = plain;
    for (auto& placed : plan.shots) placed.shot.layout = Shot::Layout::content;
    return plan;
}

Image Scene::still(const Plan& plan, double time) const {
    PlanBox box(plan);
    return Stills::frame({video, project, {}}, time, box);
}

}
