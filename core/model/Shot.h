#pragma once

#include "core/model/Values.h"
#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// A framing that holds from its moment until the next shot.
struct Shot {
    enum class Layout { split, content, face };

    UUID id = UUID::make();
    UUID source;
    double at = 0; ///< seconds on the source
    Layout layout = Layout::split;
    double zoom = 1;
    std::optional<double> focus;           ///< 0 to 1: where in the picture the crop sits
    std::optional<std::string> move;       ///< a camera move by name
    std::optional<std::string> ease;       ///< an ease by name
    std::optional<double> split;           ///< share of the height for the top panel
    std::optional<std::string> transition; ///< how the shot comes in
    std::optional<std::string> playbook;   ///< id of the layout playbook that lays it out
    std::optional<std::int64_t> version;
    std::optional<Values> values;

    bool operator==(const Shot&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Shot::id), field("source", &Shot::source), field("at", &Shot::at),
                     field("layout", &Shot::layout), field("zoom", &Shot::zoom), field("focus", &Shot::focus),
                     field("move", &Shot::move), field("ease", &Shot::ease), field("split", &Shot::split),
                     field("transition", &Shot::transition), field("playbook", &Shot::playbook),
                     field("version", &Shot::version), field("values", &Shot::values));
    }
};
constexpr auto rawTexts(Shot::Layout) {
    return std::array<std::string_view, 3>{"split", "content", "face"};
}

}
