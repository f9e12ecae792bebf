#pragma once

#include "app/editor/ai/Consent.h"
#include "app/editor/ai/Outcome.h"
#include "app/editor/commands/EditorCommand.h"

#include <vector>

namespace murbo {

/// What models read and hear in footage, as jobs of the session. Each is paid for: the owner is asked first.
namespace FootageAICommands {

/// Gives clips a title and a summary, a request and a step for each batch. Those in which nothing is said are
/// passed over.
OutcomeRef describeClips(Editor& editor, const std::vector<UUID>& clips, Consent consent = Consent::asked);

/// Corrects what the recognizer misheard in clips, a request and a step for each batch.
OutcomeRef fixWords(Editor& editor, const std::vector<UUID>& clips, Consent consent = Consent::asked);

/// Writes a note on the marked range of the held source, from frames of it, which leave the computer.
OutcomeRef notesFromFrames(Editor& editor, Consent consent = Consent::asked);

CommandList table();

}

}
