#pragma once

#include "app/mcp/MCPSession.h"
#include "tests/ai/Footage.h"

namespace murbo {

/// A session in memory.
class HeldSession : public MCPSession, public Footage {
public:
    HeldSession() {
        addClip(0, {"one", "two"});
        addVideo("First", {cut(1, 4)});
    }
    const Project& project() const override { return Footage::project; }
    const History& history() const override { return steps; }
    void closeDrag() override {}
    void commit(const std::string& name, Project changed) override {
        steps.record(name, Footage::project, changed);
        Footage::project = std::move(changed);
    }
    void undo() override { steps.undo(Footage::project); }
    std::string keepMedia(const std::filesystem::path&) override { return ""; }
    std::map<UUID, std::vector<std::uint8_t>> loudness(const std::vector<UUID>& sources) override {
        std::map<UUID, std::vector<std::uint8_t>> levels;
        for (const auto& id : sources) levels[id] = {40, 40, 40, 40, 200, 250, 40, 40, 0, 0, 0, 120};
        return levels;
    }

    /// A change of the owner's own.
    void rename(const char* title) {
        auto changed = Footage::project;
        changed.videos.edit()[0].title = title;
        commit("Rename", changed);
    }

    History steps;
};

}
