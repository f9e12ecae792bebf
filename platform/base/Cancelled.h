#pragma once

#include "platform/base/Problem.h"

namespace murbo {

/// Somebody asked for a stop. It is no failure, and nobody needs to hear of it.
class Cancelled : public Problem {
public:
    Cancelled() : Problem("It was cancelled.") {}
};

}
