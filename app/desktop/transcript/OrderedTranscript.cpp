#include "app/desktop/transcript/OrderedTranscript.h"

#include "core/model/Tags.h"

#include <algorithm>

namespace murbo {
namespace {

template <class Spoken>
std::vector<const Spoken*> inOrder(const List<Spoken>& all, double& longest) {
    std::vector<const Spoken*> list;
    list.reserve(all.size());
    for (const auto& one : all) {
        list.push_back(&one);
        longest = std::max(longest, one.end - one.start);
    }
    std::ranges::stable_sort(list, {}, &Spoken::start);
    return list;
}

}

OrderedTranscript::OrderedTranscript(const UUID& source, const Transcript& said, const List<Clip>& clips)
    : transcript(said),
      allClips(clips),
      linesByStart(inOrder(transcript.lines, longest)),
      notesByStart(inOrder(transcript.notes, longest)) {
    std::vector<const Clip*> own;
    for (const auto& clip : allClips)
        if (clip.source == source) own.push_back(&clip);
    for (auto& [id, named] : Tags::named(transcript, own)) names.emplace(id, std::move(named.tag));
}

bool OrderedTranscript::isOf(const Transcript& said, const List<Clip>& clips) const {
    return said == transcript && clips == allClips;
}

}
