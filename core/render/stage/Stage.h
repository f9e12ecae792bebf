#pragma once

#include "core/render/plan/PlacedOverlay.h"
#include "core/render/stage/Scene.h"
#include "platform/image/Image.h"

namespace murbo {

/// Draws placed playbooks. Keeps nothing: what a frame shows depends on the arguments alone, so frames may be
/// drawn in any order. Never throws: what can't be drawn is left out.
namespace Stage {

/// The playbook at a video time, laid over `canvas`; cropped to the frame.
Image draw(const PlacedOverlay& placed, double time, const Scene& scene, const Image& canvas);

/// Whether a layer that is on at that time shows what lies below. Who lays the playbook over that picture by
/// himself, not on it as the canvas, shows it twice and does well to keep it (`Image::drawnOnce`).
bool showsBelow(const PlacedOverlay& placed, double time, const Scene& scene);

}

}
