#include "app/desktop/timeline/CaptionTimes.h"

#include "app/desktop/timeline/CaptionDrag.h"

namespace murbo {

CaptionTimes::CaptionTimes(Editor& open, const CaptionList& list) : session(open), captions(list) {
    connect(&captions, &CaptionList::pickedChanged, this, &CaptionTimes::changed);
}

double CaptionTimes::start() const {
    const auto* cue = captions.pickedCue();
    return cue ? cue->start : 0;
}

double CaptionTimes::end() const {
    const auto* cue = captions.pickedCue();
    return cue ? cue->end : 0;
}

void CaptionTimes::set(bool atStart, double time) {
    const auto* cue = captions.pickedCue();
    if (!cue) return;
    TimelineBlock block;
    block.pick = {Pick::Kind::caption, cue->line, cue->piece};
    block.from = cue->start;
    block.to = cue->end;
    CaptionDrag drag(session);
    drag.begin(block, atStart ? CaptionDrag::CaptionGrip::start : CaptionDrag::CaptionGrip::end);
    drag.move(time);
    drag.end();
}

}
