#pragma once

namespace murbo {

/// Why no more comes out of a track's decoder.
enum class Stopped {
    no,
    inVain, ///< nothing came of a long stretch; another try may read on after it
    failed, ///< reading failed, and reading on would too
    atEnd
};

}
