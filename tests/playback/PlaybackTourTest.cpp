#include "tests/Approved.h"
#include "tests/playback/PlaybackTour.h"

using namespace murbo;

namespace {

/// Goes through the approved text's own lines: "> " what is done, "==" a player of its own.
std::string toured(const std::string& script) {
    std::string told;
    std::optional<PlaybackTour> tour;
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.starts_with("  ")) continue;
        if (line.starts_with("> ")) {
            tour->take(line.substr(2));
            continue;
        }
        if (line.starts_with("==")) {
            if (tour) tour->end(), told += "\n";
            told += line + "\n";
            tour.emplace(told);
            continue;
        }
        told += line + "\n"; // a remark
    }
    tour->end();
    return told;
}

TEST(Playback, doesShowsAndSoundsAsApproved) {
    const std::string name = "playback/approved/transport.txt";
    const auto script = contentsOf(std::filesystem::path(MURBO_TESTS) / name);
    for (int tries = 0; tries < 20; ++tries) try {
            return expectApproved(name, toured(script));
        } catch (const PlaybackTour::Late&) {
            // Once more, when others let it.
        }
    FAIL() << "the machine has no time for it";
}

}
