#pragma once

#include "tests/MadeMedia.h"

/// Small stretches of video whose picture is known: a window on one large drawn picture, moved or spoilt.
namespace murbo::stretches {

/// Islands of even tones with hard shores, 960 x 720: blurred noise, in steps.
inline std::filesystem::path picture() {
    return made::file("picture.png",
                      "-f lavfi -i color=gray:s=960x720 -vf \"noise=alls=100:all_seed=7,gblur=sigma=7,"
                      "lutyuv=y='floor(clip((val-128)*11+120,30,225)/45)*45':u=128:v=128\" -frames:v 1");
}

/// Makes a stretch of three seconds, once. `filter` turns the large picture into one of 480 x 360; `encoding`
/// are further options for the ffmpeg program.
inline std::filesystem::path stretch(
    const std::string& name, const std::string& filter,
    const std::string& encoding = "-c:v libx264 -preset veryfast -crf 20 -g 250") {
    return made::file(name, "-loop 1 -r 25 -i " + made::quoted(picture()) + " -t 3 -vf \"" + filter +
                                ",noise=alls=3:allf=t,format=yuv420p\" -an " + encoding);
}

/// The window in the middle of the picture, kept still.
inline const std::string still = "crop=480:360";

}
