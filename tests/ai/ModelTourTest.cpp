#include "core/ai/CaptionsByTag.h"
#include "core/ai/CutToInstruction.h"
#include "core/ai/DescribeClips.h"
#include "core/ai/FixWords.h"
#include "core/ai/Ideas.h"
#include "core/ai/LookKit.h"
#include "core/ai/MadeVideo.h"
#include "core/ai/NotesFromFrames.h"
#include "core/ai/Pricing.h"
#include "core/ai/Reply.h"
#include "core/ai/SoundKit.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/Approved.h"
#include "tests/model/Written.h"

#include <set>

#include <fmt/ranges.h>

using namespace murbo;

namespace fs = std::filesystem;
using json = nlohmann::json;

namespace {

const fs::path tests = MURBO_TESTS;

/// The project of the tours, with what models are given of it and what comes of their replies.
class Asked {
public:
    std::string take(const std::string& line) {
        told.clear();
        const auto before = written.of(project);
        try {
            run(json::parse(line));
        } catch (const Problem& problem) {
            told += "  failed: " + problem.message() + "\n";
        }
        return line + "\n" + told + Written::changes(before, written.of(project));
    }

private:
    void run(const json& line) {
        const std::string verb = line.at(0);
        const auto at = [&](std::size_t place) { return place < line.size() ? line[place] : json(); };
        if (verb == "patch")
            patch(at(1), at(2));
        else if (verb == "describe")
            describe(clips(at(1)), at(2));
        else if (verb == "fix")
            fix(clips(at(1)), at(2));
        else if (verb == "note")
            note(id(at(1)), {at(2), at(3)}, at(4));
        else if (verb == "ideas" || verb == "cut" || verb == "revise")
            begin(verb, at(1), at(2), at(3), at(4));
        else if (verb == "reply")
            reply(at(1));
        else
            change(verb, at(1).get<std::string>(), at(2));
    }

    /// What the owner does, as a JSON patch of the project or of a source's transcript.
    void patch(const std::string& what, const json& steps) {
        const auto change = [&]<class T>(T& value) {
            value = Codec::decode<T>(json::parse(Codec::encode(value)).patch(steps).dump());
        };
        if (what != "project") return change(project.transcripts.at(id(what)));
        const auto transcripts = project.transcripts;
        change(project);
        project.transcripts = transcripts;
    }

    void change(const std::string& verb, const std::string& tag, const json& given) {
        const auto video = std::ranges::find(*project.videos, tag, &Video::tag);
        const auto id = video == project.videos->end() ? UUID::make() : video->id;
        const Said said(project);
        if (verb == "look")
            given.is_null() ? say(LookKit::ask(*video, project, said, layouts, overlays))
                            : answer(LookKit::apply(given, id, project, layouts, overlays, by));
        else if (verb == "sound" && given.is_null())
            say(SoundKit::ask(*video, project, said, {"Hits/bang.wav", "Hits/boom.wav", "boom.wav"}));
        else if (verb == "sound")
            told += fmt::format("  names {}\n", fmt::join(SoundKit::files(given), ", ")),
                answer(SoundKit::apply(given, id, project, sounds, by));
        else if (verb == "shots")
            answer(ShotsByTag::replace(project, id, given, said, {{"duo", 4}, {"stock.layout.wide", 2}}, by));
        else if (verb == "sounds")
            answer(SoundsByTag::replace(project, id, given, said, sounds, by));
        else if (verb == "captions")
            answer(CaptionsByTag::replace(
                project, id,
                {Reply::member(given, "big"), Reply::member(given, "hidden"), Reply::member(given, "breaks")},
                said, by));
        else
            FAIL() << verb;
    }

    void describe(const Brief::Clips& chosen, const json& given) {
        const Said said(project);
        if (!given.is_null())
            return DescribeClips::apply(DescribeClips::read(given.dump(), chosen, said), project, by);
        for (const auto& batch : DescribeClips::batches(chosen))
            say(DescribeClips::ask(batch, project, said));
        told += fmt::format("  in all {:.4f}\n", DescribeClips::estimate(price, chosen, project, said));
    }

    void fix(const Brief::Clips& chosen, const json& given) {
        const Said said(project);
        if (given.is_null()) return say(FixWords::ask(chosen, project, said));
        const auto read = FixWords::answer(given, chosen, said);
        told += fmt::format("  left out {}\n", fmt::join(read.leftOut, ", "));
        told += fmt::format("  corrects {}\n", FixWords::apply(read.corrections, said, project, by));
    }

    void note(const UUID& source, Stretch stretch, const json& given) {
        const std::vector<std::string> frames(NotesFromFrames::times(stretch).size(), "a frame");
        if (given.is_null())
            return say(NotesFromFrames::ask(source, stretch, frames, project, Said(project))),
                   answer(NotesFromFrames::warning(frames.size()));
        const auto words = NotesFromFrames::words(given);
        if (words) NotesFromFrames::apply(*words, source, stretch, project, by);
        if (!words) answer("no words");
    }

    void begin(const std::string& verb, const json& words, const json& scope, const json& given,
               const json& shape) {
        const auto aspect =
            shape.is_string() ? *fromRawText<Video::Aspect>(std::string(shape)) : Video::Aspect::vertical;
        instruction = words.is_string() ? std::optional<std::string>(words) : std::nullopt;
        revised = verb == "revise"
                      ? *std::ranges::find(*project.videos, given.get<std::string>(), &Video::tag)
                      : Video();
        task = verb;
        reading = verb == "ideas" ? Ideas::reading(ids(scope), ids(given), instruction, aspect, project)
                  : verb == "cut"
                      ? CutToInstruction::reading(*instruction, ids(scope), ids(given), aspect, project)
                      : CutToInstruction::revising(revised, *instruction, ids(scope), project);
        say(reading->ask());
    }

    void reply(const json& given) {
        const auto text = given.is_string() ? given.get<std::string>() : given.dump();
        const auto before = reading->ask().messages.size();
        if (reading->goesOn(text)) return say(reading->ask(), before);
        const auto object = Reply::object(text);
        if (task == "ideas") {
            for (auto& idea : Ideas::ideas(object, *reading, instruction, by))
                project.ideas->edit().push_back(idea);
            return;
        }
        const auto made = CutToInstruction::answer(object, *reading, task == "revise" ? &revised : nullptr);
        answer(made.title + " | " + made.note);
        if (!made.cuts.empty())
            MadeVideo::add(project, made.title, Video::Aspect::square, made.cuts, Kit::ID::firstPass, by);
    }

    /// A request with all that is new in it; a text is printed once.
    void say(const Ask& ask, std::size_t printed = 0) {
        told += fmt::format("  {} | at most {} tokens, {} of thought | {:.4f} at a guess\n",
                            ask.model == Ask::Model::strong ? "strong" : "cheap", ask.maxTokens, ask.thinking,
                            Pricing::estimate(price, ask));
        for (; printed < ask.messages.size(); ++printed) {
            const auto& message = ask.messages[printed];
            const bool isNew = known.insert(message.content).second;
            told += fmt::format("  [{}, {} pictures]{}\n", rawText(message.role), message.pictures.size(),
                                isNew ? "\n" + message.content : " as before");
        }
    }
    void answer(const std::string& words) { told += "  " + words + "\n"; }

    Brief::Clips clips(const json& tags) const {
        Brief::Clips found;
        for (const auto& tag : tags)
            for (const auto& clip : project.clips)
                if (clip.tag() == tag) found.push_back(&clip);
        return found;
    }
    std::vector<UUID> ids(const json& tags) const {
        std::vector<UUID> found;
        for (const auto* clip : clips(tags)) found.push_back(clip->id);
        return found;
    }

    static UUID id(const std::string& name) {
        return UUID::parse("000000" + name + "-0000-0000-0000-000000000000").value();
    }

    static constexpr Price price{0.001, 0.01};
    const Run by{.at = 700'000'009, .by = Run::By::mcp, .with = "a/model"};
    const LookKit::Offers layouts{{.id = "duo", .name = "Du\no", .about = "Both\nof them", .version = 4},
                                  {.id = "stock.layout.wide", .name = "Wide", .about = "All of it"}};
    const LookKit::Offers overlays{
        {.id = "stock.hearts", .name = "Hearts", .about = "They rise", .version = 3, .seconds = 4},
        {.id = "own.flash", .name = "Flash", .about = "", .seconds = 0.1, .mute = true}};
    const SoundsByTag::Library sounds{{"Hits/bang.wav", "media/sounds/bang.wav"},
                                      {"Hits/boom.wav", "media/sounds/boom-2.wav"},
                                      {"boom.wav", "media/sounds/boom-3.wav"}};
    Project project = ProjectPackage::read(tests / "model" / "tour.mbproj");
    Written written;
    std::string told, task;
    std::optional<std::string> instruction;
    Video revised;
    std::optional<Reading> reading;
    std::set<std::string> known;
};

class ModelTours : public testing::TestWithParam<std::string> {};

}

/// Goes through a file of lines, each a JSON list. "== title" begins with the project as it was.
TEST_P(ModelTours, areAsApproved) {
    std::string told;
    std::unique_ptr<Asked> asked;
    std::istringstream lines(contentsOf(tests / "ai/tours" / (GetParam() + ".jsonl")));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("==")) asked = std::make_unique<Asked>();
        told += line.empty() || line.starts_with("==") ? line + "\n" : asked->take(line);
    }
    expectApproved("ai/approved/" + GetParam() + ".txt", told);
}

INSTANTIATE_TEST_SUITE_P(Models, ModelTours, testing::ValuesIn(stemsOf("ai/tours")),
                         [](const auto& tour) { return tour.param; });
