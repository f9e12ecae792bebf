#pragma once

// The clock stands with the records: the editing verbs need it too.
#include "core/model/VideoTime.h"
