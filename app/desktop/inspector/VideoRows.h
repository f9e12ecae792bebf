#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Mix.h"
#include "core/model/Video.h"

namespace murbo {

struct Project;

/// What can be set about a video, and about the project that it is in.
namespace VideoRows {

InspectorRowList of(const Video& video, const Project& project);

/// Sets the level that a row says; no value gives its standard back. Whether the row is a level.
bool setLevel(Mix& mix, const std::string& row, const QVariant& value);

/// The language at a place of its choice; nothing for that of the settings.
std::optional<std::string> languageAt(const Project& project, int place);

}

}
