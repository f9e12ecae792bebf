#pragma once

#include "app/desktop/timeline/TimelineBlock.h"
#include "app/desktop/timeline/TimelineLook.h"
#include "core/model/Project.h"

#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace murbo {

class Said;
class SpokenTimes;

/// Where everything of a video lies on the timeline: rows from top to bottom, blocks along the time. A plain
/// value made from the project; it knows no zoom and no window. Heights in points.
struct TimelineLayout {
    /// One row, with as many lanes as its blocks need so that none covers another.
    struct TimelineTrack {
        TimelineRow row = TimelineRow::picture;
        double top = 0;
        double height = 0; ///< of all its lanes
        double lane = 0;   ///< the height of one
        int lanes = 1;

        bool operator==(const TimelineTrack&) const = default;
    };

    /// What is to be known of a playbook.
    struct BookFacts {
        std::string name;
        bool generator = false;
        std::string media = {};      ///< the parameter that is a picture or video; empty without one
        std::string usualMedia = {}; ///< what that is by itself
    };

    /// What a layout is made from. All of it must outlive the call only.
    struct Input {
        const Project& project;
        const Video& video;
        const std::set<UUID>& missing;
        const Said& said;
        std::function<std::optional<BookFacts>(const std::string& id, std::int64_t version)> book;
        TimelineLook look;
        double quietLeast = 2;
        /// The file that a name in the look stands for.
        std::function<std::optional<std::filesystem::path>(const std::string& name)> file = {};
        SpokenTimes* spoken = nullptr; ///< what is known of it from before
    };

    static constexpr double rulerHeight = 22;
    static constexpr double gap = 3;         ///< between rows
    static constexpr double nameHeight = 16; ///< of a cut, above its strip

    std::vector<TimelineTrack> tracks;
    std::vector<TimelineBlock> blocks; ///< row by row, in each in the order of their beginnings
    double length = 0;                 ///< seconds
    double height = 0;                 ///< of all, the ruler included
    TimelineLook look;

    static TimelineLayout of(const Input& given);

    const TimelineTrack* track(TimelineRow row) const; ///< null where the row is not shown
    double top(const TimelineBlock& block) const;
    double blockHeight(const TimelineBlock& block) const;

    /// The block at a time and a height; `slack` in seconds makes a thin one easier to meet. Null where there
    /// is none.
    const TimelineBlock* hit(double time, double y, double slack = 0) const;
    /// The row at a height.
    std::optional<TimelineRow> rowAt(double y) const;
    const TimelineBlock* find(const Pick& pick) const;

    bool operator==(const TimelineLayout&) const = default;

private:
    void addShots(const Input& given);
    void addCuts(const Input& given);
    void addCaptions(const Input& given);
    void addOverlays(const Input& given);
    void addSounds(const Input& given);
    void stack();
};

}
