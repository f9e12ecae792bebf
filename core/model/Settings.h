#pragma once

#include <string>

namespace murbo {

/// Settings that several rooms need. A setting that is missing or unfit has its default. Each takes a
/// moment's look at the file, so that what another process or the settings pane changed holds at once.
namespace Settings {

/// Which class of model a task wants: routine work, or judgement across the footage.
enum class ModelClass { light, judgement };

inline constexpr const char* standardTranscriptionModel = "elevenlabs/scribe-v2";

/// The id of the model to ask.
std::string model(ModelClass wanted);

/// The id of the paid model that turns speech to text.
std::string transcriptionModel();

/// The language spoken in footage of projects that have none of their own, a code as "th".
std::string language();

/// A language's code in words, "Thai" for "th"; a code that nobody knows as it stands.
std::string languageName(const std::string& code);

/// Fall-back font families for captions, separated by commas.
std::string captionFonts();

/// How far a punch-in goes, above 1.
double punchZoom();

/// How near a drag comes before it snaps, in points.
double snapReach();

/// The shortest stretch that counts as quiet, in seconds.
double quietLeast();

}

}
