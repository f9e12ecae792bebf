#pragma once

#include "app/editor/commands/CommandTable.h"
#include "app/editor/script/Script.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <QCoreApplication>
#include <memory>

#include <gmock/gmock.h>

namespace murbo {

/// A project in a folder of its own, opened and driven by lines, with settings and library of its own. Its
/// source "rec.mp4", 100 s long, is no file: what is edited does not need it.
class Lines {
public:
    explicit Lines(const Project& begun = made()) {
        ProjectPackage::write(begun, package(), nullptr);
        open();
    }

    static Project made() {
        Project project;
        project.groups.edit().push_back({.name = "Stream"});
        Source source{.group = project.groups.front().id, .path = "/nowhere/rec.mp4", .length = 100};
        Source other{.group = project.groups.front().id, .path = "/nowhere/cam.mp4", .length = 30};
        for (int number = 1; number <= 3; ++number)
            project.clips.edit().push_back(
                {.number = number, .source = source.id, .start = number * 20.0, .end = number * 20.0 + 10});
        project.lastClip = 3;
        auto& lines = project.transcripts[source.id].lines.edit();
        for (int at = 0; at < 9; ++at)
            lines.push_back(
                {.start = 21 + at * 5.0, .end = 24 + at * 5.0, .text = "Line number " + std::to_string(at)});
        project.sources = {{source, other}};
        return project;
    }

    void open() {
        document = ProjectDocument::open(package());
        script = std::make_unique<Script>(*document);
    }
    void close() {
        document->close();
        script.reset();
        document.reset();
    }

    /// Carries out a line and waits for its answer; empty for a blank line. Of several lines, the last
    /// answer.
    template <class... More>
    std::string operator()(const std::string& line, const More&... more) {
        std::string answer;
        const bool answers = script->run(line, [&](const std::string& text) { answer = text; });
        while (answers && answer.empty()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if constexpr (sizeof...(more) > 0) return (*this)(more...);
        return answer;
    }

    /// Whether a command has anything to act on.
    bool possible(const std::string& command) { return CommandTable::find(command)->possible(editor()); }

    std::filesystem::path package() const { return folder / "p.mbproj"; }
    Editor& editor() { return document->editor(); }
    const Project& project() { return editor().project(); }

    /// The names of the steps that could be undone, the first one made first.
    std::vector<std::string> steps() {
        std::vector<std::string> names;
        for (const auto& step : editor().history().past()) names.push_back(step.name);
        return names;
    }

    TemporaryFolder folder;
    Environment config{"XDG_CONFIG_HOME", folder.path / "config"};
    // A test must never spend money.
    Environment key{"OPENROUTER_API_KEY", ""};
    Environment openRouter{"MURBO_OPENROUTER", "http://127.0.0.1:9"};
    Environment home{"HOME", folder.path / "home"};
    std::unique_ptr<ProjectDocument> document;
    std::unique_ptr<Script> script;
};

/// What the owner is asked; the answer is `agrees`.
struct OwnerAsked {
    OwnerAsked(Editor& editor, bool answer) : agrees(answer) {
        editor.confirm = [this](std::string asking, std::string text, std::string word) -> QCoro::Task<bool> {
            std::tie(title, words, button) = std::tie(asking, text, word);
            co_return agrees;
        };
    }

    bool agrees;
    std::string title, words, button;
};

/// The answer of a line that did something and has no more to say.
inline const std::string fine = R"({"ok":true})";

/// The answer of a line that changed something and said something.
inline std::string did(const std::string& toast, const std::string& step = "") {
    return R"({"ok":true,"toast":")" + toast + "\"" + (step.empty() ? "" : R"(,"step":")" + step + "\"") +
           "}";
}

/// The answer of a line that made a step and said nothing.
inline std::string stepped(const std::string& step) {
    return R"({"ok":true,"step":")" + step + "\"}";
}

/// The answer of a line that reads, by the JSON of what it gives.
inline std::string gave(const std::string& json) {
    return R"({"ok":true,"value":)" + json + "}";
}

/// The answer of a line that is not carried out.
inline std::string refused(const std::string& words) {
    return R"({"ok":false,"error":")" + words + "\"}";
}

}
