#pragma once

#include <string>

namespace murbo {

/// Why a call of the system failed, in the owner's words.
namespace SystemError {

/// The cause of an `errno` in words that end a sentence: "there is no space left on the disk".
std::string cause(int error);

}

}
