#include "core/ai/PromptIdeas.h"

#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace murbo::PromptIdeas {

namespace {

constexpr std::string_view stock[] = {
    "In Murbo, read {clip} and give it a title and a summary.",
    "In Murbo, describe every clip from {source} that has no description yet.",
    "In Murbo, find three videos worth making in {source} and leave them as ideas for me.",
    "In Murbo, read {clips} and propose one video that tells a story across them.",
    "In Murbo, make a vertical video from the best moment in {clip}, under 30 seconds.",
    "In Murbo, read {video} and tighten it: cut whatever drags, and keep my trims.",
    "In Murbo, give {video} a stronger hook in its first two seconds.",
    "In Murbo, frame {video}: split while talking, content when something happens, face on the reactions.",
    "In Murbo, pick the one to three funniest lines in {video} and show their captions big.",
    "In Murbo, break the long captions in {video} where a person would pause.",
    "In Murbo, add a few sound effects to {video} on its punch-ins and big captions. list_sounds names them.",
    "In Murbo, fix the words the recognizer misheard in {clip}, game terms especially.",
    "In Murbo, find every time someone laughs or screams in {source}, and tell me which clips they are in.",
    "In Murbo, read {video} and tell me where it loses pace. Change nothing.",
    "In Murbo, read {line} with the lines around it, and make a short video built around that moment.",
    "In Murbo, make a horizontal recap of {source} from its best clips, two to three minutes long.",
    "In Murbo, look through list_playbooks and tell me which would suit {video}, and where. Change nothing.",
    ("In Murbo, write a playbook for a bold title card saying the title of {video}. Read playbook_guide "
     "first."),
    ("In Murbo, give {video} a first pass: its cuts, framing, big captions, then sounds. Tell me what you "
     "were unsure of."),
    "In Murbo, compare {clips} and tell me which would make the strongest Short, and why.",
    "In Murbo, rename {video} to a title people would click, without giving the ending away.",
    "In Murbo, find the loudest moments in {video} and punch in on the two that matter most.",
    "In Murbo, look at my bookmarks and make a short video from the moments I marked.",
    ("In Murbo, see what I changed in {video} since you last read it, then tighten it without undoing my "
     "work."),
};

using Texts = std::vector<std::string>;
using Fill = std::optional<std::string>;

template <class T>
void shuffle(std::vector<T>& list, SeededRandom& random) {
    for (std::size_t left = list.size(); left > 1; --left)
        std::swap(list[left - 1], list[random.next() % left]);
}

Fill one(const Fill& picked, const Texts& texts, SeededRandom& random) {
    if (picked) return picked;
    if (texts.empty()) return std::nullopt;
    return texts[random.next() % texts.size()];
}

Fill several(const Slots& slots, SeededRandom& random) {
    auto chosen = slots.pickedClips;
    if (chosen.size() < 2) {
        chosen = slots.clips;
        shuffle(chosen, random);
        chosen.resize(std::min<std::size_t>(chosen.size(), 3));
    }
    if (chosen.size() < 2) return std::nullopt;
    return fmt::format("{}", fmt::join(chosen, ", "));
}

Fill slot(std::string_view name, const Slots& slots, SeededRandom& random) {
    if (name == "clip") return one(slots.pickedClip, slots.clips, random);
    if (name == "clips") return several(slots, random);
    if (name == "video") return one(slots.pickedVideo, slots.videos, random);
    if (name == "source") return one(slots.pickedSource, slots.sources, random);
    if (name == "line") return one(std::nullopt, slots.lines, random);
    return std::nullopt;
}

}

std::span<const std::string_view> all() {
    return stock;
}

std::vector<std::string> choose(std::size_t count, const Slots& slots, SeededRandom& random) {
    std::vector<std::string_view> texts(std::begin(stock), std::end(stock));
    shuffle(texts, random);
    Texts chosen;
    for (const auto text : texts) {
        if (chosen.size() >= count) break;
        if (auto filled = fill(text, slots, random)) chosen.push_back(std::move(*filled));
    }
    return chosen;
}

std::optional<std::string> fill(std::string_view text, const Slots& slots, SeededRandom& random) {
    std::string filled;
    for (;;) {
        const auto open = text.find('{');
        const auto close = open == text.npos ? open : text.find('}', open);
        if (close == text.npos) return filled.append(text);
        filled += text.substr(0, open);
        const auto value = slot(text.substr(open + 1, close - open - 1), slots, random);
        if (!value) return std::nullopt;
        filled += *value;
        text.remove_prefix(close + 1);
    }
}

}
