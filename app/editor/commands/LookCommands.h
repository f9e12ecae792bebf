#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/model/Look.h"
#include "core/playbooks/Book.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace murbo {

/// The doors through which a video's look is changed, and what is common to all that is laid on a video.
namespace LookCommands {

using LookChange = std::function<void(Look&)>;

/// A finished change of the open video's look, as a step of that name.
void changeLook(Editor& editor, const std::string& name, const LookChange& change);
/// A small piece of a drag of it.
void dragLook(Editor& editor, const LookChange& change);

/// A moment of the footage under a time of the open video.
struct SourceMoment {
    UUID source;
    double at = 0; ///< seconds on the source
};
/// That under a time, of the playhead without one. Nothing where no cut is.
std::optional<SourceMoment> momentAt(const Editor& editor, std::optional<double> time = std::nullopt);
/// The same; where there is none a toast says so.
std::optional<SourceMoment> momentOrRefused(Editor& editor, std::optional<double> time = std::nullopt);

/// Copies a file into a folder of the package's media, once however often it is added. Its path as a look
/// names it; nothing where it can't be copied.
std::optional<std::string> keepMedia(const Editor& editor, const std::filesystem::path& file,
                                     const std::string& folder);

/// A piece of a drag of where things lie in a source's picture.
void dragFraming(Editor& editor, const UUID& source, const std::function<void(Framing&)>& change);

CommandList table();

}

}
