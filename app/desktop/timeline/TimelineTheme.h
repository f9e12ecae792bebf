#pragma once

#include "app/desktop/timeline/TimelineColours.h"

#include <QVariantMap>

namespace murbo {

/// Reads the timeline's colours out of what Theme.qml gives.
namespace TimelineTheme {

/// Words as "canvas"; blocks as "split.fill", "split.edge", "split.label".
TimelineColours of(const QVariantMap& colours);

}

}
