#pragma once

#include "tests/ScriptedModel.h"
#include "tests/editor/Lines.h"

#include <functional>

namespace murbo {

/// A session whose models are scripted by the test.
class Asking : public Lines {
public:
    using json = nlohmann::json;

    /// Has the owner do something while the model thinks about its next answer.
    void meanwhile(std::function<void(Editor&)> doing) {
        model.beforeAnswer = [this, doing, done = false]() mutable {
            if (std::exchange(done, true)) return;
            QMetaObject::invokeMethod(
                &editor(), [&] { doing(editor()); }, Qt::BlockingQueuedConnection);
        };
    }

    static json cutsOf(std::initializer_list<std::pair<const char*, const char*>> pairs) {
        auto list = json::array();
        for (const auto& [from, to] : pairs) list.push_back({{"from", from}, {"to", to}});
        return list;
    }
    ScriptedModel model;

private:
    Environment ownKey{"OPENROUTER_API_KEY", "sk-or-v1-of-the-test"};
    Environment address{"MURBO_OPENROUTER", model.base()};
};

}
