#pragma once

#include "platform/base/Problem.h"

#include <string>

namespace murbo {

/// The words of the Problem that the work ends with; none where it ends well.
template <class Work>
std::string problemOf(Work work) {
    try {
        work();
    } catch (const Problem& problem) {
        return problem.message();
    }
    return "";
}

}
