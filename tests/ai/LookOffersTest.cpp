#include "core/ai/LookOffers.h"
#include "core/playbooks/Playbooks.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(LookOffers, layoutsAndAllElseOfTheLibrary) {
    const auto offers = LookOffers::ofLibrary();
    EXPECT_EQ(offers.layouts.size() + offers.overlays.size(), Playbooks::library().size());
    for (const auto& offer : offers.layouts) EXPECT_EQ(Playbooks::find(offer.id)->playbook.kind, "layout");
    for (const auto& offer : offers.overlays) EXPECT_GE(offer.seconds, 0.2) << offer.id;
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
