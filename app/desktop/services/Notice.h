#pragma once

#include <QString>

namespace murbo {

/// A notification of the system's, for what ends while nobody looks at the window. Without a service for them
/// nothing is shown.
namespace Notice {

void show(const QString& title, const QString& text);

}

}
