#include "core/render/Renderer.h"
#include "platform/text/Fonts.h"
#include "tests/ApprovedProject.h"
#include "tests/Sheet.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(RenderedSheet, videosAreDrawnAsApproved) {
    if (!Fonts::installed("Nunito")) GTEST_SKIP() << "The fonts that come with the program are not here.";
    const auto project = approvedProject();
    const auto picture = pattern(480, 270);
    Sheet sheet("render/approved/videos.png", 16);
    for (const auto& video : project.videos) {
        if (video.title.starts_with("Sound")) continue;
        const auto plan = Plan::video(video, project, "", std::filesystem::path(MURBO_TESTS) / "approved");
        CaptionCache captions;
        PlaybookMedia media;
        for (int at = 0; at < 16; ++at) {
            const double time = video.length() * (at + 0.1) / 16;
            const auto source = at == 15 ? std::nullopt : std::optional(video.cuts[0].source);
            const auto image = Renderer::render(source ? std::optional(picture) : std::nullopt, source, plan,
                                                time, captions, media);
            sheet.add(fmt::format("{} at {:.2f} s", video.title, time), image, plan.frame);
        }
    }
    sheet.expectApproved();
}
