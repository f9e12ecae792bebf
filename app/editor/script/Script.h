#pragma once

#include "app/editor/ProjectDocument.h"

#include <QObject>
#include <functional>
#include <optional>
#include <string>

namespace murbo {

/// Drives a session by lines: each is a JSON array, ["name", argument, …], and is answered by one line of
/// JSON once all that it set off has ended. A line that can't be carried out is answered with why, and the
/// next one is taken. Main thread only.
class Script : public QObject {
    Q_OBJECT

public:
    explicit Script(ProjectDocument& document);

    /// Carries out a line; `answer` gets the JSON, now or later. One at a time. A blank line is passed over
    /// and not answered: false.
    bool run(const std::string& line, std::function<void(const std::string&)> answer);

private:
    struct ScriptAnswer {
        std::optional<std::string> toast;
        std::optional<std::string> unsaved;
        std::optional<std::string> step;
        std::optional<std::string> value;
        std::optional<std::string> error;
        bool namesStep = true;
    };

    void perform(const std::string& line);
    void finish();

    ProjectDocument& document;
    ScriptAnswer current;
    std::function<void(const std::string&)> answering;
};

}
