#pragma once

#include "app/editor/Editor.h"

#include <string>

namespace murbo {

/// The observed fields of a session as JSON.
namespace SessionState {

/// One object, in one line. A field without a value is left out.
std::string json(const Editor& editor);

}

}
