#pragma once

#include "platform/base/Field.h"

#include <cstdint>
#include <string_view>

namespace murbo {

/// What a model costs, in dollars a token.
struct Price {
    double input = 0;  ///< of what it is given to read
    double output = 0; ///< of what it replies

    /// About what a request costs, in dollars: a byte of the text counts as 0.7 tokens.
    double estimate(std::string_view reading, std::int64_t replying) const {
        constexpr double tokensPerByte = 0.7;
        return output * static_cast<double>(replying) +
               input * (static_cast<double>(reading.size()) * tokensPerByte);
    }

    bool operator==(const Price&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("input", &Price::input), field("output", &Price::output));
    }
};

}
