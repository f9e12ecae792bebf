#pragma once

#include "app/desktop/timeline/TimelineBlock.h"

#include <QColor>
#include <map>

namespace murbo {

/// The colours of the timeline, as the theme has them.
struct TimelineColours {
    struct BlockColours {
        QColor fill;
        QColor edge; ///< along its top
        QColor label;
    };

    QColor canvas;
    QColor row;
    QColor ruler;
    QColor tick;
    QColor time;
    QColor wave;
    QColor quiet;
    QColor picked;
    QColor notice;
    std::map<TimelineBlock::Paint, BlockColours> blocks;
    BlockColours muted;
};

}
