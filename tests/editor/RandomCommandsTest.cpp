#include "tests/editor/Lines.h"

#include <random>

#include <fmt/format.h>

using namespace murbo;

namespace {

/// Lines that fit the project as it stands.
class RandomLines {
public:
    explicit RandomLines(Lines& driven, unsigned seed) : lines(driven), random(seed) {}

    std::string next() {
        const auto* video = lines.editor().video();
        if (!video || video->cuts.size() < 2)
            return pick({R"(["set","pickedClips",["C01","C02","C03"]])", R"(["addToEnd"])"});
        return pick({
            fmt::format(R"(["seek",{:.2f}])", video->length() * share()),
            R"(["splitAtPlayhead"])",
            fmt::format(R"(["blade",{:.2f}])", video->length() * share()),
            fmt::format(R"(["move","{}",{}])", cut(), below(video->cuts.size())),
            fmt::format(R"(["trim","{}",{},{:.2f}])", cut(), share() < 0.5, 20 + 60 * share()),
            fmt::format(R"(["endTrim","{}",true,"Trim"])", cut()),
            fmt::format(R"(["slip","{}",{:.2f}])", cut(), 90 * share()),
            fmt::format(R"(["toggleMuteCuts",["{}"]])", cut()),
            fmt::format(R"(["set","picked",["cut","{}"]])", cut()),
            share() < 0.3 ? R"(["removeCut"])" : R"(["insertAtPlayhead"])",
            fmt::format(R"(["cut","{}"])", pick({"split", "content", "face"})),
            R"(["punch"])",
            R"(["addOverlay","stock.hearts"])",
            fmt::format(R"(["rate",["C0{}"],{}])", 1 + below(3), below(3) - 1),
            fmt::format(R"(["renameClip","C0{}","Clip {}"])", 1 + below(3), below(99)),
            fmt::format(R"(["rename","{}","Title {}"])", video->tag(), below(99)),
            fmt::format(R"(["breakCaption","C01.01",["a{}","b"]])", below(9)),
            fmt::format(R"(["correct","C02.01","rec.mp4","Said {}"])", below(99)),
            fmt::format(R"(["setCaptionStyle",{},{{"size":{}}}])", share() < 0.5, 40 + below(60)),
            fmt::format(R"(["setMix",{{"music":{:.2f}}}])", share()),
            R"(["set","heldSource","rec.mp4"])",
            R"(["dropBookmark"])",
            R"(["takeOutQuiet","cut 1"])",
            fmt::format(R"(["newVideo","1:1","Video {}"])", below(9)),
            R"(["set","openVideo","V1"])",
            R"(["setAspect","16:9"])",
        });
    }

private:
    double share() { return std::uniform_real_distribution<>(0, 1)(random); }
    int below(std::size_t count) {
        return static_cast<int>(std::uniform_int_distribution<std::size_t>(0, count - 1)(random));
    }
    std::string pick(const std::vector<std::string>& from) {
        return from[static_cast<std::size_t>(below(from.size()))];
    }
    std::string cut() { return fmt::format("cut {}", 1 + below(lines.editor().video()->cuts.size())); }

    Lines& lines;
    std::mt19937 random;
};

std::string bytes(Lines& lines) {
    auto all = contentsOf(lines.package() / "project.json");
    for (const auto& source : lines.project().sources)
        all += contentsOf(lines.package() / "transcripts" / (source.id.text() + ".json"));
    return all;
}

}

TEST(RandomCommands, areUndoneToTheVeryBytesAndForthAgain) {
    Lines lines;
    RandomLines random(lines, 11);
    int given = 0;
    while (given < 500) {
        lines(R"(["closeDrag"])");
        const auto before = bytes(lines);
        const auto steps = lines.editor().history().past().size();
        std::size_t made = 0;
        for (; given < 500 && made < 90; ++given) {
            const auto line = random.next();
            const auto answer = lines(line);
            ASSERT_TRUE(answer.starts_with("{\"ok\":true")) << line << answer;
            made += answer.find("\"step\"") != answer.npos;
        }
        lines(R"(["closeDrag"])");
        const auto after = bytes(lines);
        std::size_t undone = 0;
        while (bytes(lines) != before && undone < History::maxSteps && lines.editor().history().undoName()) {
            lines(R"(["undo"])");
            ++undone;
        }
        EXPECT_EQ(bytes(lines), before) << steps;
        for (; undone > 0; --undone) lines(R"(["redo"])");
        EXPECT_EQ(bytes(lines), after);
        ASSERT_EQ(ProjectPackage::read(lines.package()), lines.project());
    }
}
