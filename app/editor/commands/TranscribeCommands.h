#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "app/editor/commands/SourceStretch.h"
#include "core/model/Project.h"

#include <functional>
#include <vector>

namespace murbo {

/// Writing down what is said, as jobs of the session.
namespace TranscribeCommands {

/// The clips of these sources in order; a source without clips whole, under its file's name.
std::vector<SourceStretch> stretches(const Project& project, const std::vector<UUID>& sources);

/// Transcribes stretches one after the other: on this machine, or `paid` through OpenRouter. What is done is
/// kept, also when a later one fails; `then` runs only after the last. No step of its own.
void transcribeQueue(Editor& editor, std::vector<SourceStretch> stretches, bool paid,
                     std::function<void()> then = {});

/// Does once more what failed last for a stretch, as it was: what costs money is asked about again.
void tryAgain(Editor& editor, const UUID& source, const Stretch& range);

CommandList table();

}

}
