#pragma once

#include "core/model/CaptionStyle.h"
#include "core/model/Framing.h"
#include "core/model/Shot.h"
#include "core/model/Video.h"
#include "core/render/plan/CaptionCue.h"
#include "core/render/plan/PlacedOverlay.h"
#include "core/render/plan/PlacedShot.h"
#include "platform/image/Geometry.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

struct Project;

/// One video laid out on its own clock: all that drawing and mixing need to know, and nothing else. A plain
/// value, worked out anew whenever the video changes. What can't be resolved is left out.
struct Plan {
    Size frame; ///< output pixels
    std::vector<PlacedShot> shots;
    std::vector<CaptionCue> cues; ///< the visible ones
    CaptionStyle style;
    std::string fonts; ///< the user's fall-back families for captions, separated by commas
    std::map<UUID, Framing> framings;
    std::map<UUID, std::filesystem::path> sources;
    std::optional<std::filesystem::path> project; ///< the package; none for a project never saved
    std::map<std::string, CaptionStyle> presets;  ///< resolved, by id
    std::vector<PlacedOverlay> overlays;          ///< in the look's order
    std::map<std::string, Shared<Book>>
        layouts;                          ///< the playbooks that frame shots, by the shots' name for them
    std::vector<PlacedOverlay> generated; ///< stretches without footage

    static Plan video(const Video& video, const Project& project, const std::string& fonts,
                      const std::optional<std::filesystem::path>& package);

    /// Output pixels of an aspect.
    static Size frameSize(Video::Aspect aspect);

    /// The shot at a video time; null in a plan without cuts.
    const PlacedShot* shot(double time) const;
    /// The caption at a video time, or null.
    const CaptionCue* cue(double time) const;
    /// The generated stretch at a video time, or null.
    const PlacedOverlay* generatedAt(double time) const;
    /// The playbook that lays a shot out; null for one of the built-in layouts, and where it is not found.
    const Shared<Book>* layout(const Shot& shot) const;
    /// Where content and face lie in a source; the default where nothing is known.
    const Framing& framing(const std::optional<UUID>& source) const;

    /// The file that a name in a look or, with its book, in a playbook stands for: an absolute path as it
    /// stands, "media/…" in the package, for a playbook one of its own. Nothing for any other name, nor for
    /// one that leads out of its folder.
    std::optional<std::filesystem::path> file(const std::string& name, const Book* book = nullptr) const;

    /// The parameters of a layout for a shot: the playbook's own, where it has a "split" that of the shot or
    /// the framing, and over them what the shot fills in.
    static Values values(const Shot& shot, const Book& book, const Framing& framing);
};

}
