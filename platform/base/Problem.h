#pragma once

#include <stdexcept>
#include <string>

namespace murbo {

/// A failure in words for the owner. What is thrown is shown as it stands, so the message is a whole
/// sentence; where the place becomes known only further up, it is wrapped once there with
/// `std::throw_with_nested`, the original kept.
class Problem : public std::runtime_error {
public:
    explicit Problem(const std::string& message) : std::runtime_error(message) {}

    /// The sentence for the owner. UTF-8.
    std::string message() const { return what(); }
};

}
