#pragma once

#include "core/ai/LookKit.h"

#include <filesystem>
#include <optional>

namespace murbo {

/// The playbooks of the owner's library that a look may use.
struct LookOffers {
    LookKit::Offers layouts;
    LookKit::Offers overlays;

    /// All that the library holds now.
    static LookOffers ofLibrary();

    /// Keeps a copy in the package of each playbook that a look uses and the project does not have yet, so
    /// that it carries what it shows. A copy that can't be made is no failure: the library has it.
    static void pin(const Look& look, const std::filesystem::path& package);
};

}
