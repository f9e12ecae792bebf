#pragma once

#include "platform/base/Problem.h"

namespace murbo {

/// Why an export did not come about, beside what reading and writing files may report.
class ExportError : public Problem {
public:
    using Problem::Problem;

    static ExportError cannotStart() { return ExportError("This Mac could not start the export."); }
};

}
