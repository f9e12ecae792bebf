#pragma once

#include "app/mcp/MCPSession.h"
#include "core/model/package/PackageLock.h"

#include <QObject>
#include <QTimer>
#include <mutex>
#include <set>
#include <stop_token>
#include <thread>

namespace murbo {

/// A project that is open to AI apps with no window: each change is saved at once, its undo history a moment
/// later and at the end. Lives on the main thread; loudness is measured on one of its own.
class ServedProject : public QObject, public MCPSession {
    Q_OBJECT

public:
    /// Throws a Problem where the project can't be read or is open elsewhere.
    explicit ServedProject(const std::filesystem::path& package);
    ~ServedProject() override;

    const Project& project() const override { return live; }
    const History& history() const override { return steps; }
    void closeDrag() override {}
    void commit(const std::string& name, Project changed) override;
    void undo() override;
    std::string keepMedia(const std::filesystem::path& file) override;
    std::map<UUID, std::vector<std::uint8_t>> loudness(const std::vector<UUID>& sources) override;

    /// Writes the undo history now; a failure loses nothing but that.
    void writeHistory();

private:
    PackageLock lock;
    std::filesystem::path package;
    Project live;
    std::set<UUID> missing;
    History steps;
    QTimer historyWrite;

    std::mutex measuredLock;
    std::map<UUID, std::vector<std::uint8_t>> measured; ///< empty for a source that can't be heard
    std::set<UUID> asked;
    std::vector<std::jthread> measuring;
};

}
