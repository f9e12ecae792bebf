#pragma once

#include "core/model/Settings.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// One request to a language model, as a task words it.
struct Ask {
    /// Which class of model the task wants; the caller resolves it to a model's id.
    enum class Model { cheap, strong };

    struct Message {
        enum class Role { system, user, assistant };
        Role role = Role::user;
        std::string content;
        /// Pictures shown with the words, each a JPEG's bytes.
        std::vector<std::string> pictures{};

        bool operator==(const Message&) const = default;
    };

    Model model = Model::cheap;
    std::vector<Message> messages;
    std::int64_t maxTokens = 0; ///< the reply's limit
    std::int64_t thinking = 0;  ///< the reasoning budget, in tokens

    /// What all messages say, a line break between them; what estimates and the log go by.
    std::string text() const;

    /// The id of the model that the settings name for this class.
    static std::string modelId(Model wanted) {
        return Settings::model(wanted == Model::strong ? Settings::ModelClass::judgement
                                                       : Settings::ModelClass::light);
    }

    bool operator==(const Ask&) const = default;
};
constexpr auto rawTexts(Ask::Message::Role) {
    return std::array<std::string_view, 3>{"system", "user", "assistant"};
}

}
