#include "core/model/Times.h"
#include "core/render/plan/Crop.h"
#include "core/render/plan/Motion.h"
#include "core/render/plan/Plan.h"
#include "core/render/plan/Snapping.h"
#include "tests/Approved.h"
#include "tests/ApprovedProject.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr Size picture{1920, 1080};

std::string text(const Rect& rect) {
    return fmt::format("{:.1f},{:.1f} {:.1f}x{:.1f}", rect.x, rect.y, rect.width, rect.height);
}

std::string text(const std::optional<Move>& move) {
    return move ? fmt::format(" {}", Codec::encode(*move, JsonWriter::Layout::compact)) : "";
}

/// What is the same in all but a few is said only where it is not.
std::string shots(const Plan& plan) {
    std::string all;
    for (const auto& placed : plan.shots) {
        all +=
            fmt::format("  shot {:.4f}–{:.4f}{}{}\n", placed.start, placed.end,
                        placed.implicit ? " implicit" : "", plan.layout(placed.shot) ? " by a playbook" : "");
        for (const double share : {0.0, 0.3, 0.95}) {
            const double time = placed.start + share * (placed.end - placed.start);
            const auto shot = placed.moved(time);
            const auto zoom = placed.zoom(time);
            all += fmt::format("    {:.4f} zoom {:.4f} focus {:.4f} jolt {:.3f}\n", time, zoom,
                               shot.focus.value_or(-1), placed.jolt(time));
            for (const auto& panel : Crop::panels(shot, zoom, plan.framing(shot.source), picture, plan.frame))
                all += fmt::format("      {} to {}\n", text(panel.source), text(panel.frame));
            if (!placed.shot.move) break;
        }
    }
    return all;
}

std::string cues(const std::vector<CaptionCue>& cues) {
    std::string all;
    for (const auto& cue : cues)
        all += fmt::format("  cue {:.4f}–{:.4f} “{}” piece {}{}{}{} {}{}\n", cue.start, cue.end, cue.text,
                           cue.piece.value_or(-1), cue.byHand ? " by hand" : "", cue.big ? " big" : "",
                           cue.hidden ? " hidden" : "", cue.stress, text(cue.move));
    for (const double time : {0.0, 0.9, 2.5})
        if (const auto shown = CaptionCue::shown(time, cues))
            all += fmt::format("  shown near {} at {:.4f}\n", time, *shown);
    return all;
}

std::string overlays(const char* name, const std::vector<PlacedOverlay>& placed) {
    std::string all;
    for (const auto& each : placed) {
        all += fmt::format("  {} {} {:.4f}–{:.4f} row {}", name, each.book->id(), each.start, each.end,
                           each.row);
        for (const auto& [key, value] : *each.values) all += fmt::format(" {}={}", key, value);
        all += text(each.overlay.move) + "\n";
    }
    return all;
}

}

TEST(PlanText, videosAreLaidOutAsApproved) {
    const auto project = approvedProject();
    std::string all;
    for (const auto& video : project.videos) {
        const auto plan =
            Plan::video(video, project, "Some Font", std::filesystem::path(MURBO_TESTS) / "approved");
        all += fmt::format("{} {:.4f} s {}x{} {}\n", video.title, video.length(), plan.frame.width,
                           plan.frame.height, Codec::encode(plan.style, JsonWriter::Layout::compact));
        all += shots(plan) + cues(CaptionCue::cues(video, project)) + overlays("overlay", plan.overlays) +
               overlays("generated", plan.generated);
        all += "  on at frames:";
        for (double time = 0; time < video.length(); time += 0.25) {
            const auto* cue = plan.cue(time);
            const auto* shot = plan.shot(time);
            const auto* generated = plan.generatedAt(time);
            all += fmt::format(" {}/{}/{}", cue ? cue - plan.cues.data() : -1,
                               shot ? shot - plan.shots.data() : -1,
                               generated ? generated - plan.generated.data() : -1);
        }
        all +=
            fmt::format("\n  snaps to {:.3f}\n", fmt::join(Snapping::targets(video, {}, std::nullopt), " "));
    }
    expectApproved("plan/approved/videos.txt", all);
}

TEST(PlanText, entrancesMoveAsApproved) {
    std::string all;
    for (const auto name : rawTexts(Entrance{}))
        for (const double progress : {-0.5, 0.0, 0.2, 0.5, 0.8, 1.0, 1.5}) {
            const auto at = Motion::enter(*fromRawText<Entrance>(name), progress, {1080, 1920});
            all += fmt::format("{} {}: {:.3f},{:.3f} x{:.4f} {:.3f}° opacity {:.4f} reveal {:.4f}\n", name,
                               progress, at.dx, at.dy, at.scale, at.rotation, at.opacity, at.reveal);
        }
    expectApproved("plan/approved/entrances.txt", all);
}
