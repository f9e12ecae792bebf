#include "app/editor/Keys.h"
#include "app/editor/commands/CommandRun.h"
#include "app/editor/commands/SessionState.h"
#include "app/editor/commands/TimelinePicks.h"
#include "app/editor/playback/PreviewVolume.h"
#include "core/ai/Spending.h"
#include "platform/store/SettingsStore.h"
#include "tests/Approved.h"
#include "tests/editor/Asking.h"
#include "tests/model/Written.h"

#include <algorithm>

using namespace murbo;

namespace fs = std::filesystem;
using json = nlohmann::json;

namespace {

const fs::path room = fs::path(MURBO_TESTS) / "editor";

/// A session over the project of the tours, which writes down what each line of a tour brings about.
class Touring : public Asking {
public:
    explicit Touring(std::string& text) : told(text) {
        for (const auto* name : settings) SettingsStore::standard().remove(name);
        Keys::standard().useStandard();
        PreviewVolume::standard().setLevel(1);
        PreviewVolume::standard().setMuted(false);
        TimelinePicks::held() = {};
        close();
        ProjectPackage::write(ProjectPackage::read(fs::path(MURBO_TESTS) / "model/tour.mbproj"), package(),
                              nullptr);
        begin();
    }

    void take(const std::string& given) {
        auto line = given;
        if (const auto at = line.find("$F"); at != line.npos) line.replace(at, 2, folder.path.string());
        told += written.shortened(given) + "\n";
        if (!line.starts_with("!tick")) stand();
        const auto before = world();
        if (line.starts_with("!")) {
            direct(line);
        } else {
            const auto command = json::parse(line, nullptr, false);
            const bool named = command.is_array() && !command.empty() && command[0].is_string();
            const auto* known = named ? CommandTable::find(command[0]) : nullptr;
            if (known && !known->possible(editor())) told += "  not possible\n";
            told += "  " + written.shortened((*this)(line)) + "\n";
        }
        told += events + Written::changes(before, world());
        events.clear();
        const auto log = Activity::read(package());
        for (; logged < log.size(); ++logged) {
            const auto& entry = log[logged];
            const auto request = entry.request.value_or("");
            told += fmt::format("  logs {} | {} | {} | {} | {} | {} | {} | of {} bytes: {}\n", entry.kind,
                                entry.title, entry.engine.value_or(""), entry.state, entry.cost.value_or(-1),
                                entry.error.value_or(""), entry.reply.value_or(""), request.size(),
                                request.substr(0, request.find('\n')));
        }
    }

private:
    static constexpr const char* settings[] = {"lastAspect",   "keys",      "skimming", "snapping",
                                               "trackHeaders", "spendCap",  "prices",   "pricesFetched",
                                               "quietLeast",   "snapReach", "punchZoom"};

    void begin() {
        open();
        (*this)(R"(["closeDrag"])"); // answered once the video is loaded
        auto& session = editor();
        QObject::connect(&session, &Editor::beeped, [this] { events += "  beeps\n"; });
        QObject::connect(&session, &Editor::copied,
                         [this](const QString& text) { events += "  copies " + text.toStdString() + "\n"; });
        QObject::connect(&session.playback, &Playback::timeChanged, [this] {
            if (editor().playback.rate() == 0) playedFrom = editor().playback.time();
        });
    }

    /// What plays goes on by the clock: it is stopped, where it began, before anything else is done.
    void stand() {
        if (editor().playback.rate() == 0) return;
        const auto from = playedFrom;
        editor().playback.pause();
        editor().playback.seek(from);
    }

    /// "!owner no", "!file NAME BYTES" and other lines that are no commands.
    void direct(const std::string& line) {
        const auto space = line.find(' ');
        const auto verb = line.substr(1, space - 1), rest = space == line.npos ? "" : line.substr(space + 1);
        if (verb == "owner")
            editor().confirm = [this, agrees = rest == "agrees"](auto title, auto words, auto button) {
                return asked(title + " | " + words + " | " + button, agrees);
            };
        else if (verb == "file")
            folder.file(rest.substr(0, rest.find(' ')), rest.substr(rest.find(' ') + 1));
        else if (verb == "model")
            model.says(rest);
        else if (verb == "setting")
            SettingsStore::standard().set(rest.substr(0, rest.find(' ')),
                                          std::stod(rest.substr(rest.find(' '))));
        else if (verb == "key") // the destructor puts back what was there before
            setenv("OPENROUTER_API_KEY", rest.c_str(), 1);
        else if (verb == "meanwhile") // done by the owner while the model thinks about its next answer
            meanwhile([this, rest](Editor& session) {
                events += CommandRun::run(session, rest) ? "" : "  not done meanwhile\n";
            });
        else if (verb == "sent")
            tellRequests();
        else if (verb == "tick")
            editor().playback.tick(std::stod(rest));
        else if (verb == "reopen")
            close(), begin();
        else if (verb == "possible")
            for (const auto& command : CommandTable::all())
                told += command.possible(editor()) ? "" : "  not " + command.name + "\n";
        else
            ADD_FAILURE() << line;
    }

    /// The requests since this was last called for, with all their fields.
    void tellRequests() {
        const auto all = model.bodies();
        for (; requests < all.size(); ++requests) {
            auto body = all[requests];
            const auto messages = body["messages"];
            body.erase("messages");
            told += "  request " + body.dump() + "\n";
            for (const auto& message : messages) {
                const auto& content = message["content"];
                const auto text = content.is_string() ? content.get<std::string>() : content.dump();
                const bool isNew = requested.insert(text).second;
                told += fmt::format("  [{}]{}\n", message["role"].get<std::string>(),
                                    isNew ? "\n" + text : " as before: " + text.substr(0, text.find('\n')));
            }
        }
    }

    QCoro::Task<bool> asked(std::string words, bool agrees) {
        events += "  asks " + words + "\n";
        co_return agrees;
    }

    json world() {
        auto& session = editor();
        auto state = json::parse(written.shortened(SessionState::json(session)));
        for (const auto* steps : {"undo", "redo"}) {
            const auto& all = state[steps];
            state[steps] = fmt::format("{} {}", all.size(), all.empty() ? "" : all[0].get<std::string>());
        }
        state.erase("toast"); // the answer says it
        if (session.playback.rate() != 0) state["time"] = playedFrom;
        if (const auto edge = session.edgeAfter())
            state["edgeAfter"] = {written.shortened(edge->source.text()), edge->at};
        if (const auto drag = session.unfinished()) state["drag"] = *drag;
        for (auto* player : {&session.playback, &session.source})
            if (const auto at = player->skimmed())
                state[player == &session.source ? "sourceSkimmed" : "skimmed"] = *at;
        state["sourceRate"] = session.source.rate();
        const auto& keys = TimelinePicks::held();
        state["held"] = {keys.shift, keys.command, keys.option};
        const auto& volume = PreviewVolume::standard();
        state["preview"] = {volume.level(), volume.muted()};
        state["saved"] = ProjectPackage::read(package()) == project() && !document->unsaved();
        return {{"state", Written::byId(state)}, {"project", written.of(project())}, {"files", files()}};
    }

    /// What lies in the folders of the test, with what is in it where that is JSON.
    json files() {
        auto found = json::object();
        for (const auto& entry : fs::recursive_directory_iterator(folder.path)) {
            const auto name = fs::relative(entry.path(), folder.path).string();
            const bool own = name.starts_with("p.mbproj/") && !name.starts_with("p.mbproj/media/") &&
                             !name.starts_with("p.mbproj/playbooks/");
            if (!entry.is_regular_file() || own || name.starts_with("state/")) continue;
            const auto parsed = name.ends_with("Caption Styles.json")
                                    ? json::parse(contentsOf(entry.path()), nullptr, false)
                                    : json(name.ends_with(".json") ? "kept" : contentsOf(entry.path()));
            found[name] = parsed;
        }
        const auto& store = SettingsStore::standard();
        if (const auto kept = store.text("lastAspect")) found["lastAspect"] = *kept;
        if (const auto kept = store.textMap("keys")) found["keys"] = *kept;
        for (const auto* name : {"skimming", "snapping", "trackHeaders"})
            if (const auto kept = store.boolean(name)) found[name] = *kept;
        return found;
    }

    std::string& told;
    Written written;
    std::string events;
    double playedFrom = 0;
    std::size_t requests = 0, logged = 0;
    std::set<std::string> requested; ///< texts that the tour has printed already: each is printed once
    Environment spending{"XDG_STATE_HOME", folder / "state"};
};

class SessionTours : public testing::TestWithParam<std::string> {};

}

/// Goes through a file of lines. "== title" begins a session of its own, "#" a remark.
TEST_P(SessionTours, areAsApproved) {
    std::string told;
    std::unique_ptr<Touring> session;
    std::istringstream lines(contentsOf(room / "tours" / (GetParam() + ".jsonl")));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("==")) {
            session.reset();
            session = std::make_unique<Touring>(told);
        }
        if (line.empty() || line.starts_with("#") || line.starts_with("=="))
            told += line + "\n";
        else
            session->take(line);
        const auto folder = session->folder.path.string();
        for (auto at = told.find(folder); at != told.npos; at = told.find(folder, at))
            told.replace(at, folder.size(), "$F");
    }
    expectApproved("editor/approved/" + GetParam() + ".txt", told);
}

INSTANTIATE_TEST_SUITE_P(Editor, SessionTours, testing::ValuesIn(stemsOf("editor/tours")),
                         [](const auto& tour) { return tour.param; });
