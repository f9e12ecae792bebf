#include "core/model/Project.h"

#include "core/model/Tags.h"
#include "platform/base/Text.h"

#include <algorithm>

#include <fmt/format.h>

namespace murbo {

std::string Source::name() const {
    const auto end = path.find_last_not_of('/');
    if (end == std::string::npos) return path;
    const auto slash = path.rfind('/', end);
    return path.substr(slash + 1, end - slash);
}

std::string Clip::tag() const {
    return fmt::format("C{}{}", Tags::twoDigits(number), part.value_or(""));
}

std::string Clip::title(const std::string& otherwise) const {
    const auto own = Text::trimmedOfBlanks(name.value_or(""));
    const bool titled = summary && !Text::trimmedOfBlanks(summary->title).empty();
    if (!own.empty()) return own + " · " + (titled ? summary->title : tag());
    return titled ? summary->title : otherwise;
}

std::string Bookmark::tag() const {
    return fmt::format("B{}", number);
}

double Idea::length() const {
    double length = 0;
    for (const auto& cut : cuts) length += cut.length();
    return length;
}

const Source* Project::source(const UUID& id) const {
    const auto found =
        std::find_if(sources.begin(), sources.end(), [&](const auto& one) { return one.id == id; });
    return found == sources.end() ? nullptr : &*found;
}

const Transcript& Project::transcript(const UUID& source) const {
    static const Transcript nothing;
    const auto found = transcripts.find(source);
    return found == transcripts.end() ? nothing : found->second;
}

}
