#pragma once

#include "core/ai/CaptionsByTag.h"
#include "core/ai/LastRuns.h"
#include "core/ai/ShotsByTag.h"
#include "core/ai/SoundsByTag.h"
#include "tests/ai/Footage.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace murbo {

/// A video that plays lines 2 and 3 of a clip, from 3.2 to 6 seconds.
class ByTag : public testing::Test, protected Footage {
protected:
    ByTag() {
        addClip(0, {"one", "two words", "three", "four"});
        video = addVideo("V", {cut(3.2, 6)}).id;
        project.videos.edit()[0].look.emplace();
    }

    Look& look() { return *project.videos.edit()[0].look; }
    std::string shots(const char* text, const ShotsByTag::Layouts& layouts = {}) {
        return ShotsByTag::replace(project, video, nlohmann::json::parse(text), Said(project), layouts, run);
    }
    std::string captions(const nlohmann::json& big, const nlohmann::json& hidden,
                         const nlohmann::json& breaks) {
        return CaptionsByTag::replace(project, video, {big, hidden, breaks}, Said(project), run);
    }
    std::string sounds(const char* text) {
        return SoundsByTag::replace(project, video, nlohmann::json::parse(text), Said(project),
                                    {{"Hits/boom.wav", "media/boom.wav"}}, run);
    }

    UUID video;
    const murbo::Run run = LastRuns::now(murbo::Run::By::mcp);
};

}
