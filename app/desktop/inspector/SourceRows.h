#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Source.h"

namespace murbo {

struct Project;

/// What there is to say about a source.
namespace SourceRows {

/// `facts` are its file's in words; `missing` is whether that is gone.
InspectorRowList of(const Source& source, const Project& project, const QString& facts, bool missing);

/// Sets what a row says; no value puts it back to its standard.
void set(Source& source, const Project& project, const std::string& row, const QVariant& value);

}

}
