#include "bench/job/Measured.h"

#include "platform/base/Problem.h"

#include <chrono>
#include <cstdio>
#include <exception>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace murbo::job {
namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

[[noreturn]] void runAndExit(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        _exit(1);
    }
    _exit(0);
}

}

Measured measured(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) runAndExit(work);
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) < 0 || status != 0)
        throw Problem("A measured process failed.");
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    return {.cpu = seconds(usage.ru_utime) + seconds(usage.ru_stime),
            .wall = wall.count(),
            .peak = static_cast<double>(usage.ru_maxrss) / 1024};
}

Measured measured(const std::vector<std::string>& arguments) {
    return measured([&] {
        std::vector<char*> pointers;
        for (const auto& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
        pointers.push_back(nullptr);
        execvp(pointers[0], pointers.data());
        throw Problem(arguments[0] + " could not be started.");
    });
}

}
