#pragma once

#include "core/playbooks/Playbook.h"

#include <optional>
#include <vector>

namespace murbo::Stage {

/// A number on its way through key frames.
struct KeyedValue {
    double value = 0;
    bool travels = false; ///< between two keys that differ

    /// Where one field stands at a time. Nothing without a key for it.
    static std::optional<KeyedValue> at(double time, const std::vector<Playbook::Key>& keys,
                                        std::optional<double> Playbook::Key::*field);
};

}
