#include "app/editor/commands/Row.h"

namespace murbo {

void Row::checkCount(const JsonValue& line, std::size_t expected) {
    if (line.size() <= expected + 1) return;
    if (expected == 0) throw Problem("There are too many arguments: none is expected.");
    throw Problem("There are too many arguments: at most " + std::to_string(expected) +
                  (expected == 1 ? " is expected." : " are expected."));
}

}
