#pragma once

#include <QString>
#include <optional>

namespace murbo {

/// Times as people type them into a field.
namespace TypedTime {

/// Seconds: "7", "7.5", "7,5 s", "1:02", "1:00:02.5". Nothing for other words, and for more than 1,000 hours.
std::optional<double> seconds(const QString& typed);

}

}
