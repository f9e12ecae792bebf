// How a source is framed, by hand, and that the window shows what the command line draws.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <fmt/format.h>

using namespace murbo;

namespace {

class Framed : public Scenario {
protected:
    /// A picture of few large dots, after a filter: the window draws smaller, and files are packed with loss.
    static std::string dots(const std::filesystem::path& file, const std::string& filter = "") {
        return made::output("ffmpeg -nostdin -v error -i " + made::quoted(file) + " -vf format=rgb24," +
                            filter + "scale=18:32:flags=area -f rawvideo -pix_fmt rgb24 -");
    }
    /// By how much two of them differ at a dot, in the mean: 0 to 255.
    static double difference(const std::string& one, const std::string& other) {
        if (one.size() != other.size() || one.empty()) return 255;
        double sum = 0;
        for (std::size_t at = 0; at < one.size(); ++at)
            sum += std::abs(static_cast<unsigned char>(one[at]) - static_cast<unsigned char>(other[at]));
        return sum / static_cast<double>(one.size());
    }
    /// What the video's viewer shows, without what lies beside its upright picture.
    std::string seenDots() {
        const auto view = still("Graphic", "Picture of Falls");
        const double width = view.height * 9 / 16;
        screen().picture(folder / "screen.jpg");
        return dots(folder / "screen.jpg", fmt::format("crop={:.0f}:{:.0f}:{:.0f}:{:.0f},", width,
                                                       view.height, view.middle().x - width / 2, view.y));
    }
    std::string stillDots(double time) {
        const auto stills = folder / "stills";
        const auto command = fmt::format("{} --still {} V1 {} {} >/dev/null", MURBO_PROGRAM,
                                         made::quoted(package), time, made::quoted(stills));
        EXPECT_EQ(std::system(command.c_str()), 0);
        return dots(std::filesystem::directory_iterator(stills)->path());
    }
    std::optional<Framing> framing() { return onDisk().sources[0].framing; }
};

}

TEST_F(Framed, boxesAreDrawnAndThePictureIsThatOfTheStill) {
    open(scenario::cutVideo());
    turnTo("Clips");
    holdClip("C01");
    clickOn("Button", "Framing", "Source viewer");
    const auto boxes = still("Graphic", "Framing", "Source viewer");
    // The content is the whole picture at first: its left edge goes in, then the face's left top corner.
    drag({boxes.x + 1, boxes.at(0, 0.3).y}, boxes.at(0.2, 0.3));
    until("the content begins further in", [&] { return framing() && framing()->content.x > 0.15; });
    EXPECT_NEAR(framing()->content.x, 0.2, 0.02);
    drag(boxes.at(0.6, 0.44), boxes.at(0.5, 0.3));
    until("the face is larger", [&] { return framing()->face.x < 0.55; });
    EXPECT_NEAR(framing()->face.x, 0.5, 0.02);
    EXPECT_NEAR(framing()->face.y, 0.3, 0.02);
    EXPECT_NEAR(framing()->face.x + framing()->face.w, 0.98, 0.01) << "its other corner stays";
    clickOn("Button", "Framing", "Source viewer");
    until("the boxes are gone", [&] { return !find("Graphic", "Framing", "Source viewer"); });

    pick("Cut", 1);
    moveSeen({1, 799}); // or the picture is that beneath the mouse
    key("Home Right*15");
    until("it stands half a second in", [&] { return seconds("Video viewer") > 0.48; });
    const auto wanted = stillDots(0.5);
    double off = 255;
    untilAtLast("the picture is that of the still",
                [&] { return (off = difference(seenDots(), wanted)) < 4; });
    key("Right 3");
    until("another shot begins", [&] { return video().look && !video().look->shots.empty(); });
    untilAtLast("it is another picture", [&] { return difference(seenDots(), wanted) > 2 * off + 4; });
    undoToStart();
}
