#pragma once

#include <string>

namespace murbo {

struct Clip;

/// How a clip is called in the window.
namespace ClipTitle {

/// Its title where its tag stands beside it: without the tag at its end.
std::string besideTag(const Clip& clip);

}

}
