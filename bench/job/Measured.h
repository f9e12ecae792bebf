#pragma once

#include <functional>
#include <string>
#include <vector>

namespace murbo::job {

/// What a process of its own used.
struct Measured {
    double cpu = 0;  ///< seconds, user and system
    double wall = 0; ///< seconds
    double peak = 0; ///< megabytes
};

/// Does the work in a child process. Throws Problem where it fails.
Measured measured(const std::function<void()>& work);

/// Runs a program.
Measured measured(const std::vector<std::string>& arguments);

}
