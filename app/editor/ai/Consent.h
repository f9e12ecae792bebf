#pragma once

namespace murbo {

/// Whether the owner has agreed to what a run costs.
enum class Consent {
    asked, ///< to be asked, where there is a way to
    given, ///< once for all
    lacking
};

}
