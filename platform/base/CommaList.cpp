#include "platform/base/CommaList.h"

#include <algorithm>

namespace murbo {

std::vector<std::string_view> CommaList::entries(std::string_view list) {
    std::vector<std::string_view> found;
    for (std::size_t at = 0; at <= list.size();) {
        const auto end = std::min(list.find(',', at), list.size());
        found.push_back(list.substr(at, end - at));
        at = end + 1;
    }
    return found;
}

}
