#include "core/model/package/ProjectPart.h"

#include "core/model/ModelCodec.h"
#include "platform/base/Problem.h"

namespace murbo::Parts {
namespace {

constexpr std::string_view countersKey = "counters";
constexpr std::string_view transcriptKey = "transcript/";

/// The parts that are one member of the project each, by their keys.
constexpr auto memberParts() {
    return std::tuple{field("groups", &Project::groups), field("sources", &Project::sources),
                      field("clips", &Project::clips),   field("bookmarks", &Project::bookmarks),
                      field("videos", &Project::videos), field("captionStyle", &Project::captionStyle),
                      field("styles", &Project::styles), field("language", &Project::language),
                      field("ideas", &Project::ideas)};
}

std::vector<std::int64_t> counters(const Project& project) {
    return {project.lastClip, project.lastBookmark, project.lastVideo};
}

void setCounters(Project& project, const std::vector<std::int64_t>& numbers) {
    if (numbers.size() != 3) return;
    project.lastClip = numbers[0];
    project.lastBookmark = numbers[1];
    project.lastVideo = numbers[2];
}

std::optional<Transcript> transcript(const Project& project, const UUID& source) {
    const auto found = project.transcripts.find(source);
    return found == project.transcripts.end() ? std::nullopt : std::optional(found->second);
}

void setTranscript(Project& project, const UUID& source, const std::optional<Transcript>& transcript) {
    if (transcript)
        project.transcripts[source] = *transcript;
    else
        project.transcripts.erase(source);
}

std::set<UUID> transcribed(const Project& one, const Project& other) {
    std::set<UUID> sources;
    for (const auto* project : {&one, &other})
        for (const auto& entry : project->transcripts) sources.insert(entry.first);
    return sources;
}

template <class T>
void note(PartsChange& change, const std::string& key, const T& before, const T& after) {
    if (before == after) return;
    change.before.emplace(key, before);
    change.after.emplace(key, after);
}

/// The part as a value of its type, read from JSON where it came from a file; nothing where it is no such
/// value.
template <class T>
std::optional<T> value(const ProjectPart& part) {
    if (const auto* held = std::get_if<T>(&part)) return *held;
    const auto* stored = std::get_if<Data>(&part);
    if (!stored) return std::nullopt;
    try {
        return std::optional<T>(std::in_place, Codec::decode<T>(stored->bytes));
    } catch (const Problem&) {
        return std::nullopt;
    }
}

template <class T>
void applyMember(const std::string& key, const ProjectPart& part, Project& project,
                 const Field<Project, T>& member) {
    if (key != member.name) return;
    if (auto read = value<T>(part)) project.*member.member = std::move(*read);
}

void applyTranscript(const std::string& key, const ProjectPart& part, Project& project) {
    const auto source = UUID::parse(std::string_view(key).substr(transcriptKey.size()));
    if (!source) return;
    if (const auto read = value<std::optional<Transcript>>(part)) setTranscript(project, *source, *read);
}

template <class T>
std::size_t weigh(const T& thing);

template <class T>
std::size_t weighRecord(const T& record) {
    constexpr std::size_t punctuation = 6;
    return T::fields([&](const auto&... member) {
        return (std::size_t{2} + ... +
                (weigh(record.*member.member) + std::char_traits<char>::length(member.name) + punctuation));
    });
}

template <class T>
std::size_t weigh(const T& thing) {
    using namespace Codec::detail;
    if constexpr (std::is_arithmetic_v<T> || HasRawTexts<T>) {
        return 10;
    } else if constexpr (std::is_same_v<T, UUID>) {
        return 38;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return thing.size() + 2;
    } else if constexpr (std::is_same_v<T, Data>) {
        return thing.bytes.size();
    } else if constexpr (is<T, std::optional>) {
        return thing ? weigh(*thing) : 4;
    } else if constexpr (is<T, Shared>) {
        return weigh(*thing);
    } else if constexpr (is<T, std::map>) {
        std::size_t sum = 2;
        for (const auto& [key, inner] : thing) sum += key.size() + 4 + weigh(inner);
        return sum;
    } else if constexpr (is<T, std::vector>) {
        std::size_t sum = 2;
        for (const auto& inner : thing) sum += weigh(inner) + 1;
        return sum;
    } else {
        return weighRecord(thing);
    }
}

}

PartsChange changed(const Project& from, const Project& to) {
    PartsChange change;
    std::apply(
        [&](const auto&... member) {
            (note(change, member.name, from.*member.member, to.*member.member), ...);
        },
        memberParts());
    note(change, std::string(countersKey), counters(from), counters(to));
    for (const auto& source : transcribed(from, to))
        note(change, std::string(transcriptKey) + source.text(), transcript(from, source),
             transcript(to, source));
    return change;
}

void apply(const ProjectParts& parts, Project& project) {
    for (const auto& one : parts) {
        const auto& key = one.first;
        const auto& part = one.second;
        std::apply([&](const auto&... member) { (applyMember(key, part, project, member), ...); },
                   memberParts());
        if (key == countersKey)
            setCounters(project, value<std::vector<std::int64_t>>(part).value_or(counters(project)));
        else if (key.starts_with(transcriptKey))
            applyTranscript(key, part, project);
    }
}

Data json(const ProjectPart& part) {
    if (const auto* stored = std::get_if<Data>(&part)) return *stored;
    return std::visit([](const auto& held) { return Data{Codec::encode(held, JsonWriter::Layout::compact)}; },
                      part);
}

std::size_t weight(const ProjectPart& part) {
    return std::visit([](const auto& held) { return weigh(held); }, part);
}

}
