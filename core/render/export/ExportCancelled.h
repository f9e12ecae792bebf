#pragma once

#include "core/render/export/ExportError.h"

namespace murbo {

/// Somebody stopped the export; nothing is left of it.
class ExportCancelled : public ExportError {
public:
    ExportCancelled() : ExportError("The export was cancelled.") {}
};

}
