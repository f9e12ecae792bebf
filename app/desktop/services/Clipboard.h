#pragma once

#include <QString>

namespace murbo {

/// The system's clipboard.
namespace Clipboard {

void put(const QString& text);

}

}
