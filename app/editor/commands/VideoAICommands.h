#pragma once

#include "app/editor/ai/Consent.h"
#include "app/editor/ai/Outcome.h"
#include "app/editor/ai/VideoTasks.h"
#include "app/editor/commands/EditorCommand.h"

#include <optional>
#include <string>

namespace murbo {

/// Videos that models propose, cut and dress, as jobs of the session. Each is paid for: the owner is asked
/// first. Where no video is named it is the open one.
namespace VideoAICommands {

OutcomeRef findIdeas(Editor& editor, const VideoTasks::Wish& wish, Consent consent = Consent::asked);
OutcomeRef cutToInstruction(Editor& editor, const VideoTasks::Wish& wish, Consent consent = Consent::asked);
OutcomeRef reviseCuts(Editor& editor, const std::optional<UUID>& video, const std::string& instruction,
                      Consent consent = Consent::asked);
OutcomeRef lookByAI(Editor& editor, const std::optional<UUID>& video, Consent consent = Consent::asked);
OutcomeRef soundByAI(Editor& editor, const std::optional<UUID>& video, Consent consent = Consent::asked);

/// A video from clips, then its look, then its sound: each a request and a step of its own. It stops where
/// one fails.
OutcomeRef firstPass(Editor& editor, VideoTasks::Wish wish, Consent consent = Consent::asked);
/// The same from an idea, whose cuts are there already.
OutcomeRef firstPassOf(Editor& editor, const UUID& idea, Consent consent = Consent::asked);

CommandList table();

}

}
