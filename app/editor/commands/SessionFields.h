#pragma once

#include "app/editor/commands/EditorCommand.h"

#include <string>
#include <vector>

namespace murbo {

/// The fields of a session that can be set by their names.
namespace SessionFields {

struct Settable {
    std::string name;
    std::string kind;                                        ///< of its value, in words
    bool mayBeNone;                                          ///< null lets go of it
    std::function<void(Editor&, const JsonValue& line)> set; ///< from ["set", name, value]
};

const std::vector<Settable>& all();

/// The command that sets one.
EditorCommand command();

}

}
