#pragma once

#include "app/editor/Collection.h"
#include "platform/base/UUID.h"

#include <optional>

namespace murbo {

struct SidebarPick {
    Collection collection = Collection::sources;
    std::optional<UUID> source; ///< a single source; the collection is `sources` then
    bool operator==(const SidebarPick&) const = default;
};

}
