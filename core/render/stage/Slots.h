#pragma once

#include "core/render/stage/Context.h"

#include <optional>
#include <string>

namespace murbo::Stage::Slots {

/// What a slot's text names: the picture beneath, a stretch of the recording ("rec:4-6.5"), an emoji
/// ("emoji:🔥") or a file.
std::optional<Image> picture(const std::string& text, const Context& context);

/// A picture or video file: an absolute path, "media/…" in the project, or one of the playbook's own.
std::optional<Image> file(const std::string& text, const Context& context);

/// Seconds into a clip of that length that a layer shows.
double playhead(const Playbook::Layer& layer, double held, double length);

/// Whether the layer shows the picture beneath it.
bool readsBelow(const Context& context);

}
