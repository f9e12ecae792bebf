#include "core/ai/LookOffers.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "tests/Approved.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(LookOffers, layoutsAndAllElseOfTheLibraryAsApproved) {
    const TemporaryFolder none; // of the owner's own
    Library::setOverride(none.path);
    Playbooks::dropListing();
    const auto all = LookOffers::ofLibrary();
    Library::setOverride(std::nullopt);
    Playbooks::dropListing();
    std::string text;
    const auto tell = [&](const char* heading, const LookKit::Offers& offers) {
        text += std::string("== ") + heading + "\n";
        for (const auto& [id, name, about, version, seconds, mute] : offers)
            text += fmt::format("{} {} | {} | {} s{} | {}\n", id, version, name, seconds,
                                mute ? *mute ? ", mute" : ", not mute" : "", about);
    };
    tell("layouts", all.layouts);
    tell("overlays", all.overlays);
    expectApproved("ai/approved/LookOffers.txt", text);
}

TEST(LookOffers, aLookIsPinnedWithWhatItUses) {
    const TemporaryFolder package;
    const auto hook = Playbooks::find("stock.hook");
    const auto corner = Playbooks::find("stock.layout.corner");
    ASSERT_TRUE(hook && corner);
    Look look;
    look.overlays.edit() = {{.playbook = "stock.hook", .version = hook->version()},
                            {.playbook = "no.such", .version = 1},
                            {.playbook = "stock.flash", .version = 99}};
    look.shots.edit() = {{.playbook = "stock.layout.corner", .version = corner->version()}};
    LookOffers::pin(look, package.path);
    EXPECT_TRUE(Playbooks::copy("stock.hook", hook->version(), package.path));
    EXPECT_TRUE(Playbooks::copy("stock.layout.corner", corner->version(), package.path));
    EXPECT_FALSE(Playbooks::copy("stock.flash", 99, package.path));
}
