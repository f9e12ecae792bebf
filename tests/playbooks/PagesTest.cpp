#include "core/playbooks/PlaybookGuide.h"
#include "core/playbooks/Stock.h"
#include "platform/base/Files.h"
#include "tests/TemporaryFolder.h"

#include <cstdlib>

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

std::string page() {
    std::string page =
        "# Playbooks\n\nThe text that people and AI apps get to write playbooks by, and what comes "
        "with the program. `./dev pages` prints this page anew.\n\n```text\n" +
        PlaybookGuide::text() + "\n```\n\n| stock | kind | seconds | for |\n| --- | --- | --- | --- |\n";
    for (const Book& book : Stock::books()) {
        const Playbook& playbook = book.playbook;
        page += fmt::format("| {} (`{}`) | {} | {} | {} |\n", playbook.name, book.id(),
                            playbook.kind.value_or("overlay"), playbook.naturalLength(),
                            playbook.about.value_or(""));
    }
    return page;
}

}

TEST(Pages, thePlaybooksPageIsTheProgramsOwn) {
    const auto file = std::filesystem::path(MURBO_TESTS).parent_path() / "docs" / "playbooks.md";
    if (std::getenv("MURBO_RENEW_PAGES")) Files::writeWhole(file, page());
    EXPECT_EQ(contentsOf(file), page()) << "The page is stale: ./dev pages renews it.";
}
