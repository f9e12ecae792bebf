#pragma once

#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <string>

namespace murbo {

/// The sources that came in by one intake.
struct SourceGroup {
    UUID id = UUID::make();
    std::string name;

    bool operator==(const SourceGroup&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &SourceGroup::id), field("name", &SourceGroup::name));
    }
};

}
