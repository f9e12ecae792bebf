#include "tests/scenarios/ChildProcess.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace murbo {
namespace {

[[noreturn]] void become(std::vector<char*> words, const ChildProcess::Variables& variables,
                         const std::string& log, int handedOn) {
    prctl(PR_SET_PDEATHSIG, SIGKILL); // a test that is ended leaves nothing running
    std::signal(SIGXFSZ, SIG_IGN);    // a limit on the size of files stands in for a full disk
    const int file = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    dup2(file, 1);
    dup2(file, 2);
    if (handedOn >= 0) dup2(handedOn, 3);
    for (const auto& [name, value] : variables)
        value.empty() ? unsetenv(name.c_str()) : setenv(name.c_str(), value.c_str(), 1);
    execvp(words[0], words.data());
    _exit(127);
}

}

ChildProcess::ChildProcess(const std::vector<std::string>& words, const Variables& variables,
                           const std::filesystem::path& log, int handedOn) {
    std::vector<char*> list;
    for (const auto& word : words) list.push_back(const_cast<char*>(word.c_str()));
    list.push_back(nullptr);
    pid = fork();
    if (pid == 0) become(list, variables, log.string(), handedOn);
}

ChildProcess::~ChildProcess() {
    if (runs()) end();
    if (runs()) kill();
}

bool ChildProcess::runs() {
    if (ended || pid < 0) return false;
    int status = 0;
    if (waitpid(pid, &status, WNOHANG) != pid) return true;
    ended = true;
    gave = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return false;
}

bool ChildProcess::waited(int seconds) {
    for (int at = 0; at < seconds * 100 && runs(); ++at)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return !runs();
}

void ChildProcess::end() {
    if (!runs()) return;
    ::kill(pid, SIGTERM);
    if (!waited(10)) kill();
}

void ChildProcess::kill() {
    if (!runs()) return;
    ::kill(pid, SIGKILL);
    waited(10);
}

double ChildProcess::processorTime() const {
    std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
    std::string text{std::istreambuf_iterator<char>(file), {}};
    const auto after = text.rfind(')');
    if (after == text.npos) return 0;
    std::istringstream rest(text.substr(after + 2));
    std::string skipped;
    for (int at = 3; at < 14; ++at) rest >> skipped;
    double user = 0;
    double system = 0;
    rest >> user >> system;
    return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

}
