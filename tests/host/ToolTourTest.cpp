#include "app/mcp/MCPHost.h"
#include "core/model/package/ProjectPackage.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "tests/Approved.h"
#include "tests/host/HeldSession.h"
#include "tests/model/Written.h"

using namespace murbo;
using nlohmann::json;

namespace {

/// The project of the tours, with footage whose loudness is known but for one file's.
class ToolTour : public HeldSession {
public:
    ToolTour() {
        Footage::project = ProjectPackage::read(std::filesystem::path(MURBO_TESTS) / "model" / "tour.mbproj");
    }
    std::string keepMedia(const std::filesystem::path& file) override {
        return "media/sounds/" + file.filename().string();
    }
    std::map<UUID, std::vector<std::uint8_t>> loudness(const std::vector<UUID>& sources) override {
        std::map<UUID, std::vector<std::uint8_t>> found;
        for (const auto& id : sources) {
            const auto& source = *project().source(id);
            if (source.name() == "far.mov") continue;
            auto& levels = found[id];
            for (std::size_t at = 0; at < static_cast<std::size_t>(source.length * 10); ++at)
                levels.push_back(static_cast<std::uint8_t>(at % 97 == 45 ? 230 - at % 7 : 60 + at % 9));
            for (const std::size_t from : {43, 255, 448, 455, 655})
                for (auto at = from; at < from + 6 && at < levels.size(); ++at) levels[at] = 190;
        }
        return found;
    }
    void showQuestion() override { ++questionsShown; }

    int questionsShown = 0;
};

/// A host with that session and a library of its own, which writes down what each line brings about.
class Telling {
public:
    Telling() {
        Library::setOverride(folder.path);
        for (const auto* sound : {"boom.wav", "Hits/bang.wav"})
            folder.file(Library::sounds().filename() / sound, sound);
        Playbooks::dropListing();
        host.setSession(session);
        QObject::connect(&host, &MCPHost::called, [this] { ++notified[0]; });
        QObject::connect(&host, &MCPHost::busyChanged, [this] { ++notified[1]; });
        QObject::connect(&host, &MCPHost::questionChanged, [this] { ++notified[2]; });
    }
    ~Telling() {
        Library::setOverride(std::nullopt);
        Playbooks::dropListing();
    }

    std::string take(const std::string& line) {
        told = line + "\n";
        const auto before = written.of(session->project());
        const auto entries = host.activity().entries().size();
        const auto space = line.find(' ');
        const auto verb = line.substr(0, space), rest = space == line.npos ? "" : line.substr(space + 1);
        if (line.starts_with("!"))
            direct(verb, rest);
        else
            call(verb, json::parse(rest));
        for (auto at = entries; at < host.activity().entries().size(); ++at) {
            const auto& entry = host.activity().entries()[at];
            auto said = entry.said;
            std::ranges::replace(said, '\n', '/');
            told += "  kept: " + entry.tool + " | " + entry.asked + " | " + entry.step.value_or("no step") +
                    (entry.made ? "" : ", nothing made") + (entry.failed ? ", failed" : "") + " | " + said +
                    "\n";
        }
        const auto more = host.activity().entries().size() - entries;
        if (notified != std::array{more, 2 * more, std::size_t{0}})
            told += fmt::format("  notified of {} calls, {} times of busy, {} of a question\n", notified[0],
                                notified[1], notified[2]);
        notified = {};
        return written.shortened(told) + Written::changes(before, written.of(session->project()));
    }

private:
    void call(const std::string& tool, const json& arguments) {
        host.call(tool, arguments, nullptr, [this](const json& result) {
            told += (result["isError"].get<bool>() ? "  failed: " : "  ") +
                    result["content"][0]["text"].get<std::string>() + "\n";
        });
        if (const auto& question = host.question())
            told += "  the owner is asked: " + std::string(question->tool->name) + " | " + question->asked +
                    ", shown " + std::to_string(session->questionsShown) + "\n";
    }

    void direct(const std::string& verb, const std::string& rest) {
        auto permissions = host.permissions();
        if (verb == "!off" || verb == "!ask") {
            permissions.set(
                verb == "!off" ? MCPPermissions::Permission::off : MCPPermissions::Permission::ask,
                *MCPTool::named(rest));
            host.setPermissions(permissions);
        } else if (verb == "!reply") {
            host.reply(rest != "no", rest == "for ten minutes");
        } else if (verb == "!owner") {
            change(rest.substr(0, rest.find(' ')), rest.substr(rest.find(' ') + 1));
        } else if (verb == "!back") {
            for (const auto& entry : host.activity().entries())
                if (entry.made) {
                    told += host.undoToBefore(entry) ? "  undone\n" : "  not undone\n";
                    break;
                }
        } else if (verb == "!closed") {
            host.setSession(nullptr);
        } else if (verb == "!stop") {
            host.stop();
        } else if (verb == "!show") {
            for (const auto& step : session->steps.past()) told += "  step " + step.name + "\n";
            told += "  busy " + std::to_string(host.busy()) + (host.question() ? ", asking\n" : "\n");
        }
    }

    /// What the owner does: the title alone, or something in each part.
    void change(const std::string& what, const std::string& tag) {
        auto changed = session->project();
        for (auto& video : changed.videos.edit()) {
            if (video.tag() != tag) continue;
            video.title = "Owner's";
            if (what == "title") continue;
            video.aspect = Video::Aspect::portrait;
            video.cuts.edit().pop_back();
            video.look->shots.edit().pop_back();
            video.look->captions.lines.edit().pop_back();
            video.look->sounds.edit().clear();
            video.look->overlays.edit().pop_back();
            video.look->music.edit().pop_back();
        }
        session->commit("Owner's", changed);
    }

    TemporaryFolder folder;
    std::shared_ptr<ToolTour> session = std::make_shared<ToolTour>();
    MCPHost host{nullptr};
    Written written;
    std::string told;
    std::array<std::size_t, 3> notified{}; ///< calls, busy, questions
};

}

TEST(ToolTour, answersAndChangesAsApproved) {
    std::string told;
    std::unique_ptr<Telling> telling;
    std::istringstream lines(contentsOf(std::filesystem::path(MURBO_TESTS) / "host/tours/tools.txt"));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("==")) {
            telling.reset();
            telling = std::make_unique<Telling>();
        }
        told += line.empty() || line.starts_with("==") ? line + "\n" : telling->take(line);
    }
    expectApproved("host/approved/tools.txt", told);
}
