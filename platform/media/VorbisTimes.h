#pragma once

#include "platform/media/Demuxer.h"

namespace murbo {

/// What the times of a Vorbis track's packets mean. Some writers put down where a packet's sound ends instead
/// of where it begins; as packets are of different lengths, their sound would be heard now early, now late.
namespace VorbisTimes {

/// Whether the times are those of the ends. Reads packets from the place where the input is until it can
/// say, at most a second or two of the track at its start as a rule.
bool areEnds(Demuxer& input, const AVStream* stream);

}

}
