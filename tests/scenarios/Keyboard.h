#pragma once

#include <string>
#include <vector>

namespace murbo {

/// Where keys lie on a US keyboard, as X counts them; the same key has another letter on other layouts.
namespace Keyboard {

/// The key called that: "Z", "1", "[", "Space", "Home", "F6", "Ctrl". Throws where there is none.
int code(const std::string& key);

/// A combination in the order in which it is pressed: "Ctrl+Shift+Z".
std::vector<int> codes(const std::string& keys);

/// What types a character of ASCII.
std::vector<int> typing(char character);

}

}
