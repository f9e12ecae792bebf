#include "core/model/Source.h"

namespace murbo {

std::string Source::name() const {
    const auto end = path.find_last_not_of('/');
    if (end == std::string::npos) return path;
    const auto slash = path.rfind('/', end);
    return path.substr(slash + 1, end - slash);
}

}
