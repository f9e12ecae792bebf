#pragma once

#include "core/model/Project.h"
#include "core/render/plan/Plan.h"
#include "platform/image/Image.h"

#include <functional>
#include <string>

namespace murbo {

/// A stretch of footage as a vertical video, to draw playbooks over.
class Scene {
public:
    /// `given` is FILE@SECONDS, further @CONTENT@FACE, each box as x,y,w,h in fractions of the picture.
    /// Throws Problem where that can't be read.
    explicit Scene(const std::string& given);

    /// The plan of the video without any playbook, split into content and face.
    const Plan& plan() const { return plain; }
    /// The middle shot's content alone, over the whole frame.
    Plan filled() const;
    const UUID& source() const { return project.sources[0].id; }

    /// The video at a time, by a plan of one's own.
    Image still(const Plan& plan, double time) const;

    static constexpr double length = 12; ///< seconds
    /// Where footage of a file lies on the video's clock is where it lies in the file, from this second on.
    double from = 0;

private:
    Project project;
    Video video;
    Plan plain;
};

}
