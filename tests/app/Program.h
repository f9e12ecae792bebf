#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace murbo {

/// What a run of the program gave.
struct Ran {
    int code = 0;    ///< its exit code, or minus the signal that ended it
    std::string out; ///< its standard output

    bool operator==(const Ran&) const = default;
};

inline void PrintTo(const Ran& ran, std::ostream* stream) {
    *stream << "code " << ran.code << ": " << ran.out;
}

/// A run that ends well, and one that fails, with this line.
inline Ran printed(const std::string& line) {
    return {0, line + "\n"};
}
inline Ran failure(const std::string& words) {
    return {1, "error: " + words + "\n"};
}

/// One word for a shell.
inline std::string quoted(const std::string& word) {
    std::string result = "'";
    for (const char c : word) result += c == '\'' ? "'\\''" : std::string(1, c);
    return result + "'";
}

/// Runs a shell command; standard error is thrown away.
inline Ran shell(const std::string& command) {
    Ran ran;
    std::FILE* pipe = popen(("exec 2>/dev/null\n" + command).c_str(), "r");
    char bytes[4096];
    while (const auto count = std::fread(bytes, 1, sizeof bytes, pipe)) ran.out.append(bytes, count);
    const int status = pclose(pipe);
    ran.code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return ran;
}

/// Runs the program itself with these words, from a folder if one is given.
inline Ran murboWith(const std::vector<std::string>& words, const std::string& environment = "",
                     const std::filesystem::path& from = ".") {
    std::string command = "cd " + quoted(from) + " && " + environment + " " + quoted(MURBO_PROGRAM);
    for (const auto& word : words) command.append(" ").append(quoted(word));
    return shell(command);
}

}
