#include "app/editor/script/ScriptRun.h"

#include "platform/base/Problem.h"
#include "platform/base/SystemError.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace murbo {
namespace {

int opened(const std::optional<std::filesystem::path>& lines) {
    if (!lines) return STDIN_FILENO;
    const int file = ::open(lines->c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        throw Problem("“" + lines->filename().string() + "” could not be read: " + SystemError::cause(errno) +
                      ".");
    return file;
}

}

ScriptRun::ScriptRun(const std::filesystem::path& project, const std::optional<std::filesystem::path>& lines)
    : document(ProjectDocument::open(project)),
      script(*document),
      input(opened(lines)),
      readable(input, QSocketNotifier::Read) {
    connect(&readable, &QSocketNotifier::activated, this, [this] { read(); });
    // The first line meets a project whose video has been loaded.
    if (!document->editor().isBusy()) return;
    readable.setEnabled(false);
    const auto once = static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection);
    connect(
        &document->editor(), &Editor::idle, this, [this] { readable.setEnabled(true); }, once);
}

ScriptRun::~ScriptRun() {
    if (input != STDIN_FILENO) ::close(input);
}

void ScriptRun::read() {
    char bytes[1 << 16];
    const auto count = ::read(input, bytes, sizeof bytes);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
    if (count > 0) pending.append(bytes, static_cast<std::size_t>(count));
    atEnd = count <= 0;
    next();
}

/// Carries out lines as far as they are here. While one runs nothing more is read: what waits stays outside.
void ScriptRun::next() {
    while (!running) {
        const auto end = pending.find('\n');
        if (end == pending.npos && (!atEnd || pending.empty())) break;
        const auto line = pending.substr(0, end);
        pending.erase(0, end == pending.npos ? end : end + 1);
        running = script.run(line, [this](const std::string& text) { answer(text); });
        // An answer that came at once has ended the line already.
        running = running && !answered;
        answered = false;
    }
    readable.setEnabled(!running && !atEnd);
    if (running || !atEnd) return;
    document->close();
    emit ended();
}

void ScriptRun::answer(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
    answered = true;
    if (!running) return; // within `next`, which goes on by itself
    running = false;
    answered = false;
    next();
}

}
