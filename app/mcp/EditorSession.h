#pragma once

#include "app/editor/Editor.h"
#include "app/mcp/MCPSession.h"

namespace murbo {

/// An open session as AI apps reach it: what they change goes the owner's own way, a step of the owner's
/// history each.
class EditorSession : public MCPSession {
public:
    /// The editor must outlive it.
    explicit EditorSession(Editor& opened) : editor(opened) {}

    const Project& project() const override { return editor.project(); }
    const History& history() const override { return editor.history(); }
    void closeDrag() override { editor.closeDrag(); }
    void commit(const std::string& name, Project changed) override;
    void undo() override { editor.undo(); }
    std::string keepMedia(const std::filesystem::path& file) override;
    std::map<UUID, std::vector<std::uint8_t>> loudness(const std::vector<UUID>& sources) override;
    void showQuestion() override { editor.setInspectorTab(InspectorTab::mcp); }

private:
    Editor& editor;
};

}
