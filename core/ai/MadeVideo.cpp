#include "core/ai/MadeVideo.h"

#include "core/ai/Brief.h"
#include "core/ai/LastRuns.h"
#include "core/model/edits/ProjectOperations.h"
#include "platform/base/Text.h"

namespace murbo {
namespace {

constexpr std::size_t longestTitle = 500; // bytes

}

std::string MadeVideo::title(const std::string& given) {
    return Text::beginning(Brief::oneLine(given), longestTitle);
}

UUID MadeVideo::add(Project& project, const std::string& title, Video::Aspect aspect, std::vector<Cut> cuts,
                    Kit::ID kit, const Run& run) {
    const auto id = ProjectOperations::newVideo(project, title, aspect).id;
    auto& video = project.videos.edit().back();
    video.cuts = std::move(cuts);
    LastRuns::note(video.runs, kit, run);
    return id;
}

}
