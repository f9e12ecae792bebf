#pragma once

#include "app/editor/playback/Playback.h"
#include "app/editor/playback/PreviewVolume.h"
#include "platform/store/SettingsStore.h"
#include "tests/playback/Screen.h"
#include "tests/playback/TourFootage.h"

#include <QCoreApplication>
#include <chrono>
#include <cmath>
#include <functional>
#include <map>
#include <sstream>

#include <fmt/format.h>

namespace murbo {

/// Carries out lines on a player whose clock and output are the test's, and writes beneath each all that
/// comes of it: what notifies, what is shown, what is heard. Several commands of a line stand between
/// semicolons. Pictures are given where the line waits for them.
class PlaybackTour {
public:
    /// The machine was so busy that the player no longer waited for its output: the tour is to begin anew.
    struct Late {};

    explicit PlaybackTour(std::string& given) : text(given) {
        player = std::make_unique<Playback>([this] { return now.load(); }, [this] { return made(); }, &volume,
                                            nullptr);
        seen = state();
        const auto note = [this](auto signal, const char* name) {
            QObject::connect(player.get(), signal, [this, name] { ++notified[name]; });
        };
        note(&Playback::timeChanged, "time");
        note(&Playback::rateChanged, "rate");
        note(&Playback::spanChanged, "span");
        note(&Playback::frameRateChanged, "frames");
        note(&Playback::frameSizeChanged, "size");
        note(&Playback::sourceChanged, "source");
    }

    void take(const std::string& line) {
        text += "> " + line + "\n";
        begun = std::chrono::steady_clock::now();
        from = screen->all().size();
        Words commands(line);
        bool watched = watchedStart = false;
        for (std::string command; std::getline(commands >> std::ws, command, ';');) {
            carryOut(command);
            watched |= command.starts_with("see") || command.starts_with("pass");
        }
        tellChanges();
        if (watched) tellShown();
    }
    void end() {
        player.reset();
        text += used;
    }

private:
    using Words = std::istringstream;

    void say(const std::string& line) { text += "  " + line + "\n"; }
    static double rounded(double value) { return std::round(value * 1e4) / 1e4 + 0.0; }

    std::unique_ptr<SoundOutput> made() {
        auto one = std::make_unique<CountedOutput>(used);
        output = one.get();
        return one;
    }
    int starts() const { return output ? output.load()->starts.load() : 0; }
    int stops() const { return output ? output.load()->stops.load() : 0; }

    void carryOut(const std::string& line) {
        Words words(line);
        std::string verb, which;
        words >> verb;
        const auto number = [&] {
            std::string word;
            words >> word;
            return word.empty() ? 0 : std::stod(word); // also "nan" and "inf"
        };
        const auto stretch = [&] {
            const double start = number();
            return Stretch{start, number()};
        };
        auto& played = *player;
        const std::map<std::string, std::function<void()>> verbs{
            {"load",
             [&] {
                 const double at = number();
                 played.load(footage.item(words), at);
             }},
            {"remix", [&] { say(played.remix(footage.item(words)) ? "taken" : "not taken"); }},
            {"refresh", [&] { refresh(number()); }},
            {"await",
             [&] {
                 const auto span = stretch();
                 played.await(span, number());
             }},
            {"unload", [&] { played.unload(); }},
            {"span", [&] { played.setSpan(stretch()); }},
            {"source", [&] { played.setSource(words >> which ? UUID::parse(which) : std::nullopt); }},
            {"seek", [&] { played.seek(number()); }},
            {"playPause", [&] { played.playPause(); }},
            {"play", [&] { played.play(stretch()); }},
            {"pause", [&] { played.pause(); }},
            {"shuttle", [&] { played.shuttle(number() > 0); }},
            {"step", [&] { played.step(number()); }},
            {"skim", [&] { played.skim(number()); }},
            {"endScrub", [&] { played.endScrub(); }},
            {"tick", [&] { played.tick(number()); }},
            {"volume", [&] { volume.setLevel(number()); }},
            {"muted", [&] { volume.setMuted(number() > 0); }},
            {"view",
             [&] {
                 const auto sides = stretch();
                 view(static_cast<int>(sides.from), static_cast<int>(sides.to));
             }},
            {"pass", [&] { pass(static_cast<int>(number())); }},
            {"turn", [&] { turn(number()); }},
            {"see", [&] { see(); }},
            {"sounds", [&] { soundsOnce(); }},
            {"falls", [&] { fallsSilent(); }},
            {"hear", [&] { say("hears " + heard(static_cast<std::size_t>(number()))); }}};
        verbs.at(verb)();
    }

    void view(int width, int height) {
        watching = width > 0;
        player->setSink(watching ? screen : nullptr, width, height);
    }

    void see() {
        watchedStart = true;
        if (!comes([this] { return standing(); })) say("no picture comes");
    }

    /// Another plan with a frame of that width.
    void refresh(double width) {
        Words cuts("-:1");
        auto plan = *footage.item(cuts).composition.box->plan();
        plan.frame = {width, width};
        player->refresh(std::move(plan));
    }

    static bool comes(const std::function<bool()>& holds) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!holds() && std::chrono::steady_clock::now() < limit)
            QCoreApplication::processEvents(), std::this_thread::sleep_for(std::chrono::microseconds(200));
        return holds();
    }

    bool came(const std::function<bool(const Screen::Shown&)>& wanted) const {
        const auto all = screen->all();
        return std::any_of(all.begin() + static_cast<std::ptrdiff_t>(from), all.end(), wanted);
    }

    /// Whether the picture of the place where it stands has come since the line began.
    bool standing() const {
        const double place = player->skimmed().value_or(player->time());
        const bool soft = player->rate() < 0;
        return came(
            [&](const auto& each) { return (each.exact || soft) && std::abs(each.time - place) < 1e-6; });
    }

    /// The sound starts once more.
    void soundsOnce() {
        ++awaitedStarts;
        if (!comes([&] { return starts() >= awaitedStarts; })) return say("no sound comes");
        awaitedStops = awaitedStarts - 1;
        sounding = true;
        if (std::chrono::steady_clock::now() - begun > std::chrono::milliseconds(400)) throw Late();
    }

    void fallsSilent() {
        ++awaitedStops;
        if (!comes([this] { return stops() >= awaitedStops; })) say("it sounds on");
        sounding = false;
    }

    /// Lets a number of thirtieths of a second pass, each with its picture and its sound.
    void pass(int count) {
        std::string first, last;
        began = player->time();
        for (int step = 0; step < count && player->rate() != 0; ++step) {
            if (sounding) (first.empty() ? first : last) = heard(second / numbered::rate);
            turn(1.0 / numbered::rate);
            if (watching && player->rate() != 0 && !comes([this] { return passing(); }))
                say("no picture comes");
        }
        if (!first.empty()) say("hears " + first + (last.empty() ? "" : " … " + last));
    }

    /// Turns the clock on, until the player has noticed.
    void turn(double seconds) {
        const auto before = notified["time"];
        now = now + seconds;
        if (sounding) output.load()->played = output.load()->played + seconds;
        if (!comes([&] { return notified["time"] > before || player->rate() == 0; }))
            say("time stands still");
    }

    /// Whether the picture of the place where it runs has come.
    bool passing() const {
        const double way = player->rate() > 0 ? 1 : -1, stride = std::abs(player->rate()) / numbered::rate;
        return came([&](const auto& each) {
            const double since = (player->time() - each.time) * way;
            return each.time != began && since > -1e-4 && since < stride - 1e-4;
        });
    }

    /// The first, the middle and the last of a number of frames, as milliseconds of the ramp.
    std::string heard(std::size_t frames) {
        std::vector<float> sound(2 * frames, 9.0F);
        if (output) output.load()->fill(sound);
        std::string samples;
        for (const std::size_t at : {std::size_t{0}, frames / 2, frames - 1})
            samples += fmt::format("{}{:.1f}{}", at == 0 ? "" : " ", 4000 * sound[2 * at] + 0.0,
                                   sound[2 * at] == sound[2 * at + 1] ? "" : "!");
        return samples;
    }

    std::map<std::string, std::string> state() const {
        const auto& p = *player;
        return {{"time", fmt::format("{}", rounded(p.time()))},
                {"rate", fmt::format("{}", p.rate())},
                {"span", fmt::format("{} to {}", rounded(p.spanStart()), rounded(p.spanEnd()))},
                {"frames", fmt::format("{} a second", p.frameRate())},
                {"size", fmt::format("{}x{}", p.frameSize().width(), p.frameSize().height())},
                {"source", p.sourceText().toStdString()},
                {"loaded", p.isLoaded() ? "yes" : "no"},
                {"skimmed", p.skimmed() ? fmt::format("{}", *p.skimmed()) : "no"},
                {"dropped", fmt::format("{}", p.counts().dropped)}};
    }

    void tellChanges() {
        const auto after = state();
        for (const auto& [name, value] : after) {
            const int times = std::exchange(notified[name], 0);
            const bool notifies = name != "loaded" && name != "skimmed" && name != "dropped";
            if (value == seen[name] && times == 0) continue;
            say(name + " " + value + (!notifies || times == 1 ? "" : fmt::format(", said {} times", times)));
        }
        seen = after;
    }

    /// Told is where the line waits for it: the pictures that are certain to come.
    void tellShown() {
        const double rate = player->rate();
        auto shown = screen->all();
        shown.erase(shown.begin(),
                    shown.begin() + static_cast<std::ptrdiff_t>(std::exchange(read, shown.size())));
        std::erase_if(shown, [&](const auto& each) {
            return rate == 0 ? !each.exact : each.time == began && !watchedStart;
        });
        for (auto& each : shown) {
            if (rate < 0) each.exact = true;
            if (rate < -1) each.carried = 0;
        }
        for (const auto& line : runs.told(shown)) say(line);
    }

    std::string& text;
    std::atomic<double> now = 0;
    const TemporaryFolder folder;
    const TourFootage footage;
    SettingsStore settings{folder / "settings.json"};
    PreviewVolume volume{settings};
    std::atomic<CountedOutput*> output = nullptr;
    std::string used = "  there was no sound\n";
    std::shared_ptr<Screen> screen = std::make_shared<Screen>();
    std::unique_ptr<Playback> player;
    std::map<std::string, std::string> seen;
    std::map<std::string, int> notified;
    std::size_t from = 0, read = 0; ///< of the pictures: where the line began, and how many were given
    double began = 0;               ///< where the last run did
    bool watchedStart = false;
    int awaitedStarts = 0, awaitedStops = 0;
    bool sounding = false, watching = false;
    ShownRuns runs;
    std::chrono::steady_clock::time_point begun;
};

}
