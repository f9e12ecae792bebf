#pragma once

#include "platform/base/Problem.h"

namespace murbo {

/// Somebody asked for a stop. Whoever waits tells it apart from a failure: nobody needs to be told.
class Cancelled : public Problem {
public:
    Cancelled() : Problem("It was cancelled.") {}
};

}
