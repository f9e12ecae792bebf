#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace murbo {

/// A variable of the environment that has another value as long as this lives.
class Environment {
public:
    Environment(const char* given, const std::string& value) : name(given) {
        if (const char* standing = std::getenv(name)) before = standing;
        setenv(name, value.c_str(), 1);
    }
    Environment(const Environment&) = delete;
    ~Environment() {
        if (before)
            setenv(name, before->c_str(), 1);
        else
            unsetenv(name);
    }

private:
    const char* name;
    std::optional<std::string> before;
};

}
