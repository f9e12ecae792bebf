#include "app/mcp/Serve.h"

#include "app/editor/EndSignals.h"
#include "app/editor/ProjectDocument.h"
#include "app/mcp/EditorSession.h"
#include "app/mcp/MCPHost.h"
#include "app/mcp/TerminalQuestion.h"
#include "core/ai/Brief.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <QCoreApplication>
#include <cstdio>

#include <fmt/format.h>
#include <unistd.h>

namespace murbo {

namespace {

std::string line(const MCPActivity::Entry& entry) {
    const auto said = entry.said.substr(0, entry.said.find('\n'));
    return fmt::format("{}{}{}: {}{}\n", MCPTool::named(entry.tool)->title(), entry.asked.empty() ? "" : ", ",
                       entry.asked, entry.failed ? "not done: " : "", Brief::oneLine(said));
}

void print(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

}

void Serve::run(const std::filesystem::path& package) {
    const EndSignals endings; // before the threads of the session, which take over what is blocked
    const auto document = ProjectDocument::open(package);
    QObject::connect(document.get(), &ProjectDocument::told,
                     [](const QString& words) { std::fprintf(stderr, "%s\n", qUtf8Printable(words)); });
    MCPHost host(&SettingsStore::standard());
    host.setSession(std::make_shared<EditorSession>(document->editor()));
    host.start();
    if (!host.problem().empty()) throw Problem(host.problem());
    const TerminalQuestion questions(host);
    if (isatty(STDOUT_FILENO)) {
        print(fmt::format("AI apps can work on {} now. Ctrl-C ends it.\n", package.filename().string()));
        QObject::connect(&host, &MCPHost::called, [&] { print(line(host.activity().entries().back())); });
    }
    QObject::connect(&endings, &EndSignals::ending, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    QCoreApplication::exec();
    host.stop();
    document->close();
    if (document->unsaved()) throw Problem(*document->unsaved());
}

}
