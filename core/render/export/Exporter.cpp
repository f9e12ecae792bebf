#include "core/render/export/Exporter.h"

#include "core/model/HeardOptions.h"
#include "core/model/Project.h"
#include "core/render/VideoComposition.h"
#include "core/render/export/DrawnFrames.h"
#include "core/render/export/ExportCancelled.h"
#include "core/render/export/ExportError.h"
#include "core/render/export/OwnFiles.h"
#include "core/render/export/Subtitles.h"
#include "core/render/plan/CaptionCue.h"
#include "core/render/sound/MixedSound.h"
#include "core/render/sound/SoundMix.h"
#include "platform/base/Files.h"
#include "platform/base/Text.h"
#include "platform/media/MovieWriter.h"
#include "platform/media/SoundReader.h"

#include <chrono>
#include <optional>
#include <system_error>
#include <utility>

namespace murbo::Exporter {
namespace {

using Progress = std::function<void(double)>;

/// Tells how far the movie is, a few times a second.
class Teller {
public:
    explicit Teller(const Progress& given) : progress(given) {}

    void tell(double share) {
        const auto now = std::chrono::steady_clock::now();
        if (!progress || now < due) return;
        due = now + std::chrono::milliseconds(200);
        progress(share);
    }

    void tellEnd() const {
        if (progress) progress(1);
    }

private:
    const Progress& progress;
    std::chrono::steady_clock::time_point due{};
};

MovieSettings settings(const VideoComposition& composition, bool sound) {
    const auto frame = composition.box->plan()->frame;
    return {.width = static_cast<int>(frame.width),
            .height = static_cast<int>(frame.height),
            .rate = composition.rate,
            .sound = sound,
            .preset = encoderPreset,
            .quality = encoderQuality,
            .lookahead = encoderLookahead};
}

/// An export at work: pictures and sound are made ahead on threads of their own and meet in the movie here.
class ExportRun {
public:
    /// Without `tracks` the movie has no sound; with none in it, a silent one.
    ExportRun(const VideoComposition& given, std::optional<std::vector<SoundMix::Track>> tracks,
              const std::filesystem::path& to) try
        : composition(given),
          writer(MovieWriter::open(to, settings(given, tracks.has_value()))),
          frames(given) {
        if (tracks) sound.emplace(std::move(*tracks), given.length());
    } catch (const std::system_error&) {
        std::throw_with_nested(ExportError::cannotStart());
    }

    void run(const Progress& progress, const std::stop_token& stop) {
        const std::stop_callback stopping(stop, [this] { end(); });
        Teller teller(progress);
        std::int64_t written = 0;
        while (const auto planes = frames.next()) {
            teller.tell(static_cast<double>(written) / static_cast<double>(composition.frameCount()));
            writer.picture(*planes);
            writeSound(static_cast<double>(++written) / composition.rate);
        }
        if (stop.stop_requested()) throw ExportCancelled();
        writeSound(composition.length());
        if (stop.stop_requested()) throw ExportCancelled();
        writer.finish();
        teller.tellEnd();
    }

private:
    /// Lets the sound follow the pictures, so that neither lies waiting in the movie for long.
    void writeSound(double until) {
        while (sound && soundUntil < until) {
            const auto block = sound->next();
            if (!block) return;
            writer.sound(*block);
            soundUntil += static_cast<double>(block->size()) / (Sound::rate * Sound::channels);
        }
    }

    void end() {
        frames.stop();
        if (sound) sound->stop();
    }

    const VideoComposition& composition;
    MovieWriter writer;
    DrawnFrames frames;
    std::optional<MixedSound> sound; ///< none where there is no sound track
    double soundUntil = 0;           ///< seconds
};

std::filesystem::path subtitlesBeside(std::filesystem::path movie) {
    return movie.replace_extension("srt");
}

/// Whether there were any to write.
bool writeSubtitles(const Video& sounding, const Project& project, const std::filesystem::path& movie) {
    auto cues = CaptionCue::cues(sounding, project);
    std::erase_if(cues, [](const CaptionCue& cue) { return cue.hidden; });
    if (!cues.empty()) Files::writeWhole(subtitlesBeside(movie), Subtitles::srt(cues));
    return !cues.empty();
}

void refuseOwnFiles(const Order& order, const Video& video, const Project& project, const Plan& plan) {
    const OwnFiles own(project, video, plan);
    std::vector<std::filesystem::path> places{order.to};
    if (order.subtitles) places.push_back(subtitlesBeside(order.to));
    for (const auto& place : places) own.refuse(place);
    if (order.subtitles && places[0] == places[1])
        throw Problem(
            "The movie and its subtitles would have one name. Let the movie's name not end in .srt.");
}

}

Notes movie(const Video& video, const Project& project, const Order& order, const Progress& progress,
            std::stop_token stop) {
    const auto sounding = heard(video, {.includingMutedRows = order.includingMutedRows,
                                        .includingMutedBlocks = order.includingMutedBlocks});
    const auto composition =
        VideoComposition::make(sounding, project, order.missing, order.fonts, order.package, order.frameRate);
    if (composition.frameCount() == 0) throw Problem("The video has no cuts, so there is nothing to export.");
    refuseOwnFiles(order, video, project, *composition.box->plan());
    const auto& plan = *composition.box->plan();
    std::optional tracks = SoundMix::tracks(sounding, plan, order.missing);
    if (tracks->empty() && !SoundMix::isRecorded(sounding, plan, order.missing)) tracks.reset();
    ExportRun(composition, std::move(tracks), order.to).run(progress, stop);
    const bool hasOwn = order.subtitles && writeSubtitles(sounding, project, order.to);
    const auto beside = subtitlesBeside(order.to);
    std::error_code failed;
    if (hasOwn || beside == order.to || !std::filesystem::exists(beside, failed)) return {};
    return {.oldSubtitles = beside};
}

}
