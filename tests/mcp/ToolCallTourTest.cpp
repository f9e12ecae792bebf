#include "core/mcp/MCPCalls.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/Approved.h"
#include "tests/model/Written.h"

using namespace murbo;

namespace fs = std::filesystem;
using json = nlohmann::json;

namespace {

const fs::path tests = MURBO_TESTS;

/// Calls of tools on the project of the tours, whose footage but for one file has been heard.
class Calls {
public:
    Calls() {
        for (const auto& source : project.sources) {
            if (source.name() == "far.mov") continue;
            auto& levels = context.loudness[source.id];
            for (std::size_t at = 0; at < static_cast<std::size_t>(source.length * 10); ++at)
                levels.push_back(static_cast<std::uint8_t>(at % 97 == 45 ? 230 - at % 7 : 60 + at % 9));
            for (const std::size_t from : {43, 255, 448, 455, 655})
                for (auto at = from; at < from + 6 && at < levels.size(); ++at) levels[at] = 190;
        }
        context.layouts = {{"duo", 4}, {"stock.layout.wide", 2}};
        context.sounds = {{"Hits/bang.wav", "media/sounds/bang-2.wav"}, {"boom.wav", "media/boom-3.wav"}};
    }

    std::string take(const std::string& line) {
        const auto space = line.find(' ');
        const auto verb = line.substr(0, space);
        const auto given = json::parse(line.substr(space + 1));
        const auto before = written.of(project);
        std::string told = line + "\n";
        try {
            told += verb == "!patch" ? patched(given) : called(verb, given);
        } catch (const Problem& problem) {
            told += "  failed: " + problem.message() + "\n";
        }
        return written.shortened(told) + Written::changes(before, written.of(project));
    }

private:
    /// What the owner does, as a JSON patch of the project.
    std::string patched(const json& steps) {
        auto transcripts = project.transcripts;
        project = Codec::decode<Project>(json::parse(Codec::encode(project)).patch(steps).dump());
        project.transcripts = std::move(transcripts);
        return "";
    }

    std::string called(const std::string& tool, const json& arguments) {
        const auto result = MCPCalls::call(tool, arguments, project, context);
        auto words = "  " + result.text + "\n";
        if (result.step) words += "  step " + *result.step + "\n";
        for (const auto& video : project.videos) {
            if (video.id != result.looked) continue;
            context.seen[video.id] = video;
            words += "  looked at " + video.tag() + "\n";
        }
        return words;
    }

    Project project = ProjectPackage::read(tests / "model" / "tour.mbproj");
    MCPContext context;
    Written written;
};

std::vector<std::string> tours() {
    auto names = stemsOf("mcp/tours");
    std::erase(names, "messages"); // they are MessagesTest's
    return names;
}

class ToolCalls : public testing::TestWithParam<std::string> {};

}

/// Goes through a file of lines, each a tool and its arguments. "== title" begins with the project as it was.
TEST_P(ToolCalls, answerAndChangeAsApproved) {
    std::string told;
    std::unique_ptr<Calls> calls;
    std::istringstream lines(contentsOf(tests / "mcp/tours" / (GetParam() + ".txt")));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("==")) calls = std::make_unique<Calls>();
        told += line.empty() || line.starts_with("==") ? line + "\n" : calls->take(line);
    }
    expectApproved("mcp/approved/" + GetParam() + ".txt", told);
}

INSTANTIATE_TEST_SUITE_P(Tools, ToolCalls, testing::ValuesIn(tours()),
                         [](const auto& tour) { return tour.param; });
