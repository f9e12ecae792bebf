#pragma once

#include "app/editor/playback/PlayerFrame.h"
#include "platform/image/Bitmap.h"

namespace murbo {

/// Takes a player's pictures: a view, a test, a recorder.
class FrameSink {
public:
    virtual ~FrameSink() = default;

    /// Called when the picture is due, on a thread of the player's, one call at a time. Whoever takes long
    /// here holds up the next picture.
    virtual void show(const PlayerFrame& frame) = 0;
};

}
