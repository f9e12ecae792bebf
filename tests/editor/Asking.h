#pragma once

#include "tests/ScriptedModel.h"
#include "tests/editor/Lines.h"

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

    /// Has the owner change the project then.
    void meanwhile(const std::string& step, const std::function<void(Project&)>& change) {
        meanwhile([=](Editor& editor) { editor.change(step, change); });
    }

    /// Has the model answer with cuts from line to line, and more.
    void answersCuts(std::initializer_list<std::pair<const char*, const char*>> pairs, json more = {}) {
        more["cuts"] = cutsOf(pairs);
        model.answers(more);
    }

    ScriptedModel model;

private:
    Environment ownKey{"OPENROUTER_API_KEY", "sk-or-v1-of-the-test"};
    Environment address{"MURBO_OPENROUTER", model.base()};
};

}
