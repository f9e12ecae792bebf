#pragma once

#include "platform/vision/Graph.h"

#include <string_view>

namespace murbo {

/// Reads networks from TFLite files (a FlatBuffer; tensorflow/lite/schema/schema.fbs).
namespace GraphFile {

/// The largest file that is worth reading, in bytes.
inline constexpr std::size_t maxBytes = 16 << 20;

/// The network in a file that is not trusted: every size in it is checked against what the layers make of
/// their inputs, and memory and work are bounded. Knows the kinds of layer of `Graph`, in 32-bit numbers with
/// weights of 16 or 32 bits. Throws Problem on anything else.
Graph read(std::string_view bytes);

}

}
