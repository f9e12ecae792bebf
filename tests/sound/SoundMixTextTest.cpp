#include "core/render/sound/SoundMix.h"
#include "tests/Approved.h"
#include "tests/ApprovedProject.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(SoundMixText, videosSoundAsApproved) {
    const auto project = approvedProject();
    const auto lengths = [](const std::filesystem::path& file) -> std::optional<double> {
        if (file.filename() == "none.wav") return std::nullopt;
        return file.extension() == ".wav" ? 0.8 : file.extension() == ".mp3" ? 30 : 64.25;
    };
    const auto package = std::filesystem::path(MURBO_TESTS) / "approved";
    const auto named = [&](const std::filesystem::path& file) {
        return file.string().starts_with(package.string()) ? file.lexically_relative(package).string()
                                                           : file.string();
    };
    std::string all;
    for (const auto& video : project.videos) {
        const auto plan = Plan::video(video, project, "", package);
        all += fmt::format("{} {:.4f} s{}\n", video.title, video.length(),
                           SoundMix::isRecorded(video, plan, {}, lengths) ? "" : ", nothing recorded");
        for (const auto& file : SoundMix::files(video, plan)) all += fmt::format("  names {}\n", named(file));
        for (const auto& missing : {std::set<UUID>(), {project.sources[1].id}}) {
            for (const auto& track : SoundMix::tracks(video, plan, missing, lengths)) {
                all += fmt::format("  {}{}\n", named(track.file), missing.empty() ? "" : " (two is missing)");
                for (const auto& piece : track.pieces)
                    all += fmt::format("    {:.4f}–{:.4f} from {:.4f}\n", piece.start, piece.end, piece.from);
                for (const auto& ramp : track.gains)
                    all += fmt::format("    gain {:.4f}–{:.4f}: {:.4f} to {:.4f}\n", ramp.start, ramp.end,
                                       ramp.from, ramp.to);
            }
        }
    }
    expectApproved("sound/approved/videos.txt", all);
}
