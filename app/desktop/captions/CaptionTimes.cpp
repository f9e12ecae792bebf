#include "app/desktop/captions/CaptionTimes.h"

#include "app/desktop/captions/CaptionDrag.h"

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
    CaptionDrag drag(session);
    drag.begin({Pick::Kind::caption, cue->line, cue->piece}, {cue->start, cue->end},
               atStart ? CaptionDrag::CaptionGrip::start : CaptionDrag::CaptionGrip::end);
    drag.move(time);
    drag.end();
}

}
