#pragma once

#include "platform/media/Demuxer.h"

namespace murbo {

/// Where a file really ends, whatever its header says: recordings break off, and some never say a length.
namespace FileEnd {

/// Seconds from the file's zero to the end of its last picture or sound; 0 where it can't be found. May open
/// the file a second time to look at its last packets.
double length(const Demuxer& input);

}

}
