#include "app/mcp/MCPHost.h"

#include "app/mcp/MCPConnection.h"
#include "core/mcp/LibraryTools.h"
#include "core/mcp/LoudPlaces.h"
#include "core/mcp/MCPCalls.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/PlaybookGuide.h"
#include "core/playbooks/Playbooks.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"
#include "platform/store/SettingsStore.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {

namespace {

using ID = MCPTool::ToolID;

constexpr const char* permissionsKey = "mcpPermissions";
constexpr int maxWaiting = 1024;                   ///< connections that the system holds for us
constexpr std::chrono::milliseconds shortage{200}; ///< after which connections are taken again

Date now() {
    return std::chrono::system_clock::now();
}

/// The step that an undo would take back.
std::optional<History::Step> lastStep(const MCPSession& session) {
    const auto& past = session.history().past();
    return past.empty() ? std::nullopt : std::optional(past.back());
}

}

/// One call under way.
struct MCPHost::CallUnderWay {
    const MCPTool* tool = nullptr;
    nlohmann::json arguments;
    std::shared_ptr<MCPSession> session;
    QPointer<QObject> client;
    Answer answer;
    MCPActivity::Entry entry;
    std::string text;

    void say(const std::string& words, bool failed = false) {
        text = Text::repaired(words);
        entry.failed = failed;
    }
};

MCPHost::MCPHost(SettingsStore* keeper, QObject* parent)
    : QObject(parent), store(keeper), listener(std::make_unique<QTcpServer>()) {
    listener->setMaxPendingConnections(maxWaiting);
    listener->setListenBacklogSize(maxWaiting);
    connect(listener.get(), &QTcpServer::newConnection, this, &MCPHost::serve);
    // Qt stops accepting where the system is short of descriptors, and would never begin again.
    connect(listener.get(), &QTcpServer::acceptError, this,
            [this] { QTimer::singleShot(shortage, listener.get(), &QTcpServer::resumeAccepting); });
    if (!store) return;
    const auto kept = store->data(permissionsKey);
    if (kept) allowed = MCPPermissions::read(kept->bytes);
}

MCPHost::~MCPHost() = default;

void MCPHost::start(std::uint16_t port) {
    listenerProblem.clear();
    if (!listener->listen(QHostAddress::LocalHost, port))
        listenerProblem =
            fmt::format("Port {} could not be opened. {}", port, listener->errorString().toStdString());
    emit problemChanged();
}

void MCPHost::stop() {
    listener->close();
    endQuestion();
}

std::uint16_t MCPHost::port() const {
    return listener->serverPort();
}

void MCPHost::serve() {
    const auto calling = [this](const std::string& tool, const nlohmann::json& arguments, QObject* from,
                                Answer answer) { call(tool, arguments, from, std::move(answer)); };
    while (auto* socket = listener->nextPendingConnection()) new MCPConnection(socket, calling, this);
}

void MCPHost::setPermissions(MCPPermissions permissions) {
    allowed = std::move(permissions);
    if (!store) return;
    store->set(permissionsKey, Data{allowed.stored()});
}

void MCPHost::call(const std::string& name, const nlohmann::json& arguments, QObject* client, Answer answer) {
    const auto* tool = MCPTool::named(name);
    if (!tool) return answer(MCPServer::text(MCPCalls::unknown(name), true));
    if (!session)
        return answer(MCPServer::text("No project is open in Murbo. Ask the owner to open one.", true));
    const auto work = std::make_shared<CallUnderWay>();
    *work = {tool, arguments, session, client, std::move(answer), {}, {}};
    work->entry = {.at = now(), .tool = name, .asked = MCPActivity::brief(arguments), .session = session};
    ++running;
    emit busyChanged();
    switch (allowed.decide(*tool, now())) {
        case MCPPermissions::Decision::refuse:
            work->say(fmt::format("The owner has turned {} off in Murbo's Settings ▸ MCP.", tool->title()),
                      true);
            return finish(*work);
        case MCPPermissions::Decision::ask:
            return ask(work);
        case MCPPermissions::Decision::run:
            run(*work);
            return finish(*work);
    }
}

void MCPHost::ask(std::shared_ptr<CallUnderWay> work) {
    endQuestion(); // one at a time: an older one counts as answered no
    asking = Question{.tool = work->tool, .asked = work->entry.asked};
    const auto id = asking->id;
    const bool isFromApp = work->client;
    answered = [this, work, isFromApp](bool yes) {
        if (yes)
            run(*work);
        else if (isFromApp && !work->client)
            work->say("The app left before the owner answered.", true);
        else
            work->say(fmt::format("The owner said no to {}.", work->tool->title()), true);
        finish(*work);
    };
    if (isFromApp)
        connect(work->client, &QObject::destroyed, this, [this, id] {
            if (asking && asking->id == id) reply(false);
        });
    work->session->showQuestion();
    emit questionChanged();
}

void MCPHost::reply(bool yes, bool forTenMinutes) {
    if (!asking) return;
    if (yes && forTenMinutes) allowed.allowForTenMinutes(*asking->tool, now());
    asking.reset();
    const auto goOn = std::exchange(answered, nullptr);
    emit questionChanged();
    if (goOn) goOn(yes);
}

void MCPHost::endQuestion() {
    reply(false);
}

void MCPHost::finish(CallUnderWay& work) {
    work.entry.said = MCPActivity::firstLines(work.text);
    const bool failed = work.entry.failed;
    done.add(std::move(work.entry));
    --running;
    emit busyChanged();
    emit called();
    work.answer(MCPServer::text(work.text, failed));
}

void MCPHost::run(CallUnderWay& work) {
    try {
        MCPCalls::isInApp(work.tool->id) ? runInApp(work, *work.session) : runTool(work, *work.session);
    } catch (const Problem& problem) {
        work.say(problem.message(), true);
    } catch (const std::exception&) {
        work.say(fmt::format("{} could not be done.", work.tool->title()), true);
    }
}

void MCPHost::runTool(CallUnderWay& work, MCPSession& on) {
    on.closeDrag();
    const auto outside = context(work, on);
    auto project = on.project();
    auto result = MCPCalls::call(work.tool->name, work.arguments, project, outside);
    if (result.step) {
        const auto before = lastStep(on);
        on.commit(*result.step, std::move(project));
        last = lastStep(on);
        if (last && before && MCPActivity::same(*last, *before)) last.reset(); // nothing changed
        lastIn = work.session;
        work.entry.step = result.step;
        work.entry.made = last;
    }
    see(result, on.project());
    work.say(result.text);
}

void MCPHost::see(const MCPResult& result, const Project& project) {
    if (!result.looked) return;
    for (const auto& video : project.videos)
        if (video.id == *result.looked) seen[video.id] = video;
}

MCPContext MCPHost::context(const CallUnderWay& work, MCPSession& on) {
    MCPContext context{.seen = seen, .said = said.of(on.project())};
    if (work.tool->id == ID::setShots)
        for (const auto& book : Playbooks::library())
            if (book.playbook.kind == "layout") context.layouts.emplace(book.id(), book.version());
    if (work.tool->id == ID::setSounds) context.sounds = sounds(work.arguments, on);
    if (work.tool->id == ID::readLoudness)
        context.loudness = on.loudness(LoudPlaces::sources(work.arguments, on.project()));
    return context;
}

SoundsByTag::Library MCPHost::sounds(const nlohmann::json& arguments, MCPSession& on) const {
    SoundsByTag::Library library;
    const auto sounds = arguments.find("sounds");
    const auto names = SoundsByTag::named(sounds == arguments.end() ? nlohmann::json() : *sounds);
    for (const auto& [name, file] : LibraryTools::sounds())
        if (std::ranges::count(names, name)) library.emplace(name, on.keepMedia(file));
    return library;
}

void MCPHost::runInApp(CallUnderWay& work, MCPSession& on) {
    switch (work.tool->id) {
        case ID::listPlaybooks:
            return work.say(LibraryTools::listPlaybooks());
        case ID::readPlaybook:
            return work.say(LibraryTools::readPlaybook(work.arguments));
        case ID::playbookGuide:
            return work.say(PlaybookGuide::text());
        case ID::listSounds:
            return work.say(LibraryTools::listSounds(work.arguments));
        case ID::undoMyLast:
            return undoLast(work, on);
        case ID::writePlaybook:
            return work.say(LibraryTools::writePlaybook(work.arguments));
        default:
            throw Problem(MCPCalls::unknown(work.tool->name));
    }
}

void MCPHost::undoLast(CallUnderWay& work, MCPSession& on) {
    on.closeDrag();
    const auto step = lastStep(on);
    if (!last || lastIn.lock() != work.session || !step || !MCPActivity::same(*step, *last))
        return work.say(
            "Nothing of yours to take back: the owner has changed something since, or your last call "
            "changed nothing.");
    const auto before = on.project().videos;
    on.undo();
    last.reset();
    // What it took back itself is no news to it.
    for (const auto& video : before)
        if (const auto its = seen.find(video.id); its != seen.end() && its->second == video)
            see({.looked = video.id}, on.project());
    work.say(fmt::format("Took back “{}”.", step->name));
}

bool MCPHost::undoToBefore(const MCPActivity::Entry& entry) {
    const auto on = entry.session.lock();
    if (!on || !entry.made) return false;
    on->closeDrag();
    const auto& past = on->history().past();
    const auto found = std::ranges::find_if(
        past, [&](const History::Step& step) { return MCPActivity::same(step, *entry.made); });
    const auto steps = past.end() - found; // undoing changes what they stand in
    for (auto left = steps; left > 0; --left) on->undo();
    return steps > 0;
}

}
