#pragma once

#include <QString>

namespace murbo {

/// What the system that this runs on calls things. The core's texts are the same on every system; the
/// desktop shows them with these words in the place of another system's.
namespace PlatformWords {

QString shown(const QString& text);
QString shown(const std::string& text);
QString shown(const char* text);

}

}
