#include "core/model/package/ProjectPart.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

using Keys = std::vector<std::string>;

Keys keys(const ProjectParts& parts) {
    Keys all;
    for (const auto& part : parts) all.push_back(part.first);
    return all;
}

/// Parts as a file holds them.
ProjectParts stored(const ProjectParts& parts) {
    ProjectParts all;
    for (const auto& [key, part] : parts) all.emplace(key, Parts::json(part));
    return all;
}

/// A project in which each part says something.
Project whole(const UUID& source) {
    Project project;
    project.groups.edit().push_back({.name = "G"});
    project.sources.edit().push_back({.id = source, .path = "/a"});
    project.clips.edit().push_back({.number = 1, .source = source, .start = 1, .end = 2});
    project.bookmarks.edit().push_back({.number = 2, .source = source, .at = 3});
    project.videos.edit().push_back({.number = 3, .title = "V"});
    project.ideas.emplace().edit().push_back({.title = "I"});
    project.captionStyle = CaptionStyle{.size = 50};
    project.styles.edit().push_back({.id = "s"});
    project.language = "en";
    std::tie(project.lastClip, project.lastBookmark, project.lastVideo) = std::tuple(4, 5, 6);
    project.transcripts[source].lines.edit().push_back({.start = 1, .end = 2, .text = "said"});
    return project;
}

}

TEST(ProjectPart, eachPartThatDiffersIsNamedAndNoOther) {
    const auto source = UUID::make();
    const auto project = whole(source);
    const auto change = Parts::changed({}, project);
    EXPECT_EQ(keys(change.before),
              (Keys{"bookmarks", "captionStyle", "clips", "counters", "groups", "ideas", "language",
                    "sources", "styles", "transcript/" + source.text(), "videos"}));
    EXPECT_EQ(keys(change.after), keys(change.before));
    EXPECT_TRUE(Parts::changed(project, project).after.empty());
    auto other = project;
    other.lastVideo = 7;
    other.transcripts.erase(source);
    EXPECT_EQ(keys(Parts::changed(project, other).after), (Keys{"counters", "transcript/" + source.text()}));
}

TEST(ProjectPart, partsLeadBackAndForthAlsoFromAFile) {
    const auto project = whole(UUID::make());
    const auto change = Parts::changed({}, project);
    for (const bool fromFile : {false, true}) {
        Project live;
        Parts::apply(fromFile ? stored(change.after) : change.after, live);
        EXPECT_EQ(live, project) << fromFile;
        Parts::apply(fromFile ? stored(change.before) : change.before, live);
        EXPECT_EQ(live, Project()) << fromFile;
    }
}

TEST(ProjectPart, whatCanNotBeReadIsPassedOver) {
    const auto source = UUID::make();
    const auto before = whole(source);
    auto project = before;
    Parts::apply({{"clips", Data{"{"}},
                  {"videos", std::vector<std::int64_t>{1}},
                  {"counters", Data{"[1,2]"}},
                  {"transcript/" + source.text(), Data{"[]"}},
                  {"transcript/none", Data{"null"}},
                  {"unknown", Data{"1"}},
                  {"language", Data{"\"th\""}}},
                 project);
    EXPECT_EQ(project.language, "th") << "the others still apply";
    project.language = before.language;
    EXPECT_EQ(project, before);
}

TEST(ProjectPart, weighsAboutWhatItsJsonTakes) {
    auto project = whole(UUID::make());
    for (int at = 0; at < 200; ++at) {
        project.transcripts.begin()->second.lines.edit().push_back(
            {.start = at + 0.25, .end = at + 1.5, .text = std::string(40, 'x')});
        project.clips.edit().push_back({.number = at, .start = 0.125, .end = 12345.5, .rating = 1});
    }
    const auto parts = Parts::changed({}, project).after;
    for (const auto& key : {std::string("clips"), "transcript/" + project.sources[0].id.text()}) {
        const auto bytes = static_cast<double>(Parts::json(parts.at(key)).bytes.size());
        EXPECT_GT(static_cast<double>(Parts::weight(parts.at(key))), 0.7 * bytes) << key;
        EXPECT_LT(static_cast<double>(Parts::weight(parts.at(key))), 2 * bytes) << key;
    }
    EXPECT_EQ(Parts::weight(Data{"12345"}), 5u);
}
