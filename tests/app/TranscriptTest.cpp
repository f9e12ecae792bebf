#include "tests/Approved.h"
#include "tests/app/CommandTest.h"

#include <map>
#include <regex>

#include <fmt/format.h>

using namespace murbo;

namespace {

/// Identities by the order in which they come up, and no folder of this run alone.
std::string plain(const std::string& text, const std::string& folder, std::map<std::string, int>& known) {
    static const std::regex changing("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}");
    std::string result;
    auto from = text.begin();
    for (std::sregex_iterator found(text.begin(), text.end(), changing), end; found != end; ++found) {
        result.append(from, text.begin() + found->position());
        result += fmt::format("ID{}", known.try_emplace(found->str(), known.size() + 1).first->second);
        from = text.begin() + found->position() + found->length();
    }
    result.append(from, text.end());
    for (auto at = result.find(folder); at != result.npos; at = result.find(folder))
        result.replace(at, folder.size(), "HERE");
    return result;
}

}

TEST(Transcript, commandsPrintAsApproved) {
    if (shell("ffmpeg -version").code != 0)
        GTEST_SKIP() << "The ffmpeg program makes the footage, and it is not here.";
    const TemporaryFolder folder;
    std::string all;
    std::map<std::string, int> known;
    for (const auto& line : linesOf("app/approved/commands.txt")) {
        const auto ran =
            shell("exec 2>&1; cd " + quoted(folder.path) + "; export HOME=$PWD/home TZ=UTC; murbo() { " +
                  quoted(MURBO_PROGRAM) + " \"$@\"; }; " + line);
        all += "$ " + line + "\n" + plain(ran.out, folder.path, known) +
               (ran.code ? fmt::format("= {}\n", ran.code) : "");
    }
    expectApproved("app/approved/transcript.txt", all);
}
