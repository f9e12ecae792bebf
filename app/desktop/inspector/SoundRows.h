#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/SoundCue.h"

namespace murbo {

/// What can be set about a sound or a song.
namespace SoundRows {

/// `fileLength` is how long its file is in seconds, where that is known.
InspectorRowList of(const SoundCue& cue, bool music, std::optional<double> fileLength);

/// Sets what a row says; no value puts it back to its standard.
void set(SoundCue& cue, const std::string& row, const QVariant& value);

}

}
