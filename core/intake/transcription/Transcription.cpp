#include "core/intake/transcription/Transcription.h"

#include "core/intake/transcription/Sound.h"
#include "core/model/Source.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr double dollarsAnHour = 0.4;

Line onSource(HeardLine heard, double start, double end) {
    Line line;
    line.start = start + heard.start;
    line.end = std::min(start + heard.end, end);
    line.text = std::move(heard.text);
    return line;
}

}

Transcription::Result Transcription::lines(const Source& source, double start, double end,
                                           const std::string& language, const std::string& hint,
                                           const Transcriber& engine, std::stop_token stop) {
    const auto wav = Sound::wav(source.path, start, end, stop);
    auto heard = engine.transcribe(wav.path(), language, hint, stop);
    Result result{{}, heard.cost, std::move(heard.request)};
    for (auto& line : heard.lines) result.lines.push_back(onSource(std::move(line), start, end));
    return result;
}

double Transcription::scribeCost(double seconds) {
    return seconds / 3600 * dollarsAnHour;
}

}
