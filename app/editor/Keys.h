#pragma once

#include "app/editor/Command.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

class SettingsStore;

/// Which key gives which command; the user may change it. A key is one lower-case character, or "space" or
/// "delete". Main thread only.
class Keys {
public:
    /// Those of the user's own settings.
    static Keys& standard();

    explicit Keys(SettingsStore& settings);

    static std::string_view title(Command command);
    static std::string_view standardKey(Command command);

    std::string key(Command command) const;
    /// The first command with that key.
    std::optional<Command> command(const std::string& key) const;

    /// Gives a command a key. Whoever had it takes the command's own in exchange, and is answered.
    /// Throws where the settings can't be written; every key then stays.
    std::optional<Command> bind(Command command, const std::string& key);
    /// Gives every command its standard key again.
    void useStandard();

    /// The name of a typed key; nothing for those that can't be bound (return, tab, arrows, function keys). A
    /// character counts in lower case, without the keys held beside it.
    static std::optional<std::string> name(const std::string& typed);

private:
    using Bindings = std::map<std::string, std::string>; ///< by raw text; only keys that are not standard

    static void put(Bindings& bindings, Command command, const std::string& key);
    void keep(Bindings next);

    SettingsStore& settings;
    Bindings bindings;
};

}
