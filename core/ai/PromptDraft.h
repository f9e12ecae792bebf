#pragma once

#include <string>
#include <utility>
#include <vector>

namespace murbo {

/// A text that the owner composes for an AI app. Picked things stand in it by name, and go to the app by tag.
struct PromptDraft {
    struct Thing {
        std::string name;
        std::string tag;
    };
    struct NamedThing {
        std::string shown;
        std::string tag;
        bool operator==(const NamedThing&) const = default;
    };

    std::string text;
    std::vector<NamedThing> named;

    /// Adds things to the end of the text, by name in quotes; with the tag where the name is taken.
    void put(const std::vector<Thing>& things);

    /// The text for the app: each shown name replaced by its tag.
    std::string written() const;
};

}
