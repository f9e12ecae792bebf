// A project open to AI apps on a free port, whose owner works on it by lines on standard input: what a window
// is, without one.
//
//   door PROJECT        prints the port, then answers each line as --script does
//   door bridge PORT    the bridge to it
#include "app/editor/ProjectDocument.h"
#include "app/editor/script/Script.h"
#include "app/mcp/EditorSession.h"
#include "app/mcp/MCPHost.h"
#include "app/mcp/bridge/MCPBridge.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <cstdio>

#include <unistd.h>

using namespace murbo;

namespace {

void print(const std::string& text) {
    std::puts(text.c_str());
    std::fflush(stdout);
}

/// The owner: one line at a time, each once the one before is answered.
class Owner {
public:
    explicit Owner(ProjectDocument& document) : script(document), input(STDIN_FILENO, QSocketNotifier::Read) {
        QObject::connect(&input, &QSocketNotifier::activated, &input, [this] { read(); });
    }

private:
    void read() {
        std::array<char, 4096> bytes;
        const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) return QCoreApplication::quit();
        typed.append(bytes.data(), static_cast<std::size_t>(count));
        const auto end = typed.find('\n');
        if (end == typed.npos) return;
        const auto line = typed.substr(0, end);
        typed.erase(0, end + 1);
        script.run(line, print);
    }

    Script script;
    QSocketNotifier input;
    std::string typed;
};

int serve(int count, char** words) {
    const QCoreApplication application(count, words);
    const auto document = ProjectDocument::open(words[1]);
    MCPHost host(nullptr);
    host.setSession(std::make_shared<EditorSession>(document->editor()));
    host.start(0);
    print(std::to_string(host.port()));
    const Owner owner(*document);
    QCoreApplication::exec();
    host.stop();
    document->close();
    return 0;
}

}

int main(int count, char** words) {
    if (count == 2) return serve(count, words);
    if (count != 3) return 2;
    MCPBridge::run({STDIN_FILENO, STDOUT_FILENO, static_cast<std::uint16_t>(std::stoi(words[2]))});
}
