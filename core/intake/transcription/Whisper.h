#pragma once

#include "core/intake/transcription/Transcriber.h"

#include <optional>
#include <string_view>

namespace murbo {

/// Speech to text on this machine, for free, by whisper.cpp's command-line tool.
namespace Whisper {

inline constexpr const char* name = "whisper (on this Mac)";
inline constexpr const char* standardTool = "whisper-cli";

/// Where the model file is looked for: ".whisper-models/ggml-large-v3-turbo.bin" in the home folder.
std::filesystem::path standardModel();

/// What is lacking, in words for the owner. Nothing where all is there.
std::optional<std::string> missing(const std::string& tool = standardTool);

/// The engine on a model file; `tool` is the name of a build of whisper-cli.
Transcriber on(const std::filesystem::path& model, const std::string& tool = standardTool);

/// The lines in the JSON that the tool writes. Halves of letters that it cut in two, and lines with nothing
/// in them, are left out. Throws a Problem.
std::vector<HeardLine> lines(std::string_view json);

}

}
