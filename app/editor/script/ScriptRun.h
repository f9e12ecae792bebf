#pragma once

#include "app/editor/ProjectDocument.h"
#include "app/editor/script/Script.h"

#include <QObject>
#include <QSocketNotifier>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace murbo {

/// A whole run of `--script`: opens a project, carries out the lines of a file or of standard input, answers
/// each on standard output, and closes the project. The session's own timers run on between lines.
class ScriptRun : public QObject {
    Q_OBJECT

public:
    /// Throws where the project or the file can't be opened.
    ScriptRun(const std::filesystem::path& project, const std::optional<std::filesystem::path>& lines);
    ~ScriptRun() override;

    /// Once it has ended: why what was done is not on disk, in words for the owner; nothing where it is.
    const std::optional<std::string>& unsaved() const { return document->unsaved(); }

signals:
    void ended();

private:
    void read();
    void next();
    void answer(const std::string& text);

    std::unique_ptr<ProjectDocument> document;
    Script script;
    int input;
    QSocketNotifier readable;
    std::string pending; ///< read, and not yet carried out
    bool atEnd = false;
    bool running = false;  ///< a line
    bool answered = false; ///< within the call that started it
};

}
