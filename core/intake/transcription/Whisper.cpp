#include "core/intake/transcription/Whisper.h"

#include "core/intake/transcription/Sound.h"
#include "platform/base/Codec.h"
#include "platform/base/Files.h"
#include "platform/base/HomeFolder.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"
#include "platform/base/Tool.h"

#include <chrono>

#include <unistd.h>

namespace murbo {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr const char* longestLine = "60"; // characters
constexpr const char* download =
    "https://huggingface.co/ggerganov/whisper.cpp/resolve/main/ggml-large-v3-turbo.bin";
constexpr std::size_t largestAnswer = 64 << 20; // bytes; a day of speech
constexpr std::string_view brokenLetter = "\xEF\xBF\xBD";

/// The part of the tool's JSON that counts.
struct WhisperOutput {
    struct Offsets {
        std::int64_t from = 0; ///< milliseconds
        std::int64_t to = 0;
        static constexpr auto fields(auto visit) {
            return visit(field("from", &Offsets::from), field("to", &Offsets::to));
        }
    };
    struct Item {
        Offsets offsets;
        std::string text;
        static constexpr auto fields(auto visit) {
            return visit(field("offsets", &Item::offsets), field("text", &Item::text));
        }
    };
    std::vector<Item> transcription;
    static constexpr auto fields(auto visit) {
        return visit(field("transcription", &WhisperOutput::transcription));
    }
};
static_assert(Record<WhisperOutput::Offsets> && Record<WhisperOutput::Item> && Record<WhisperOutput>);

/// A file that somebody else makes, removed when this goes.
struct Removed {
    const fs::path path;
    ~Removed() { ::unlink(path.c_str()); }
};

std::vector<std::string> arguments(const fs::path& model, const fs::path& wav, const std::string& language,
                                   const std::string& hint) {
    const auto stem = fs::path(wav).replace_extension();
    std::vector<std::string> all{"-m",  model, "-f",        wav,   "-l",  language,
                                 "-np", "-ml", longestLine, "-oj", "-of", stem};
    if (!hint.empty()) all.insert(all.end(), {"--prompt", hint});
    return all;
}

std::string joined(std::string line, const std::vector<std::string>& words) {
    for (const auto& word : words) line += " " + word;
    return line;
}

std::int64_t soundBytes(const fs::path& wav) {
    std::error_code error;
    const auto size = fs::file_size(wav, error);
    return error ? 0 : static_cast<std::int64_t>(size) - Sound::headerSize;
}

/// A tool that hangs must end some day; a slow machine with a large model must not be cut off.
std::chrono::milliseconds patience(const fs::path& wav) {
    return 10min + 60 * std::chrono::seconds(soundBytes(wav) / Sound::speechBytesPerSecond);
}

/// The tool also ends well when it could not read the sound or write its answer.
std::vector<HeardLine> answer(const std::string& tool, const fs::path& json,
                              const std::string& lastWords) try {
    return Whisper::lines(Files::readWhole(json, largestAnswer));
} catch (const Problem& problem) {
    std::throw_with_nested(Problem(tool + " gave no transcript that can be read. " + problem.message() +
                                   " Its last words: " + lastWords));
}

Transcribed transcribe(const std::string& tool, const fs::path& model, const fs::path& wav,
                       const std::string& language, const std::string& hint, const std::stop_token& stop) {
    if (const auto lack = Whisper::missing(tool)) throw Problem(*lack);
    const auto asked = arguments(model, wav, language, hint);
    Transcribed result;
    result.request = joined(tool, asked);
    if (soundBytes(wav) <= 0) return result; // the tool takes a file without sound for a broken one
    const auto json = fs::path(wav).replace_extension(".json");
    const Removed afterwards{json};
    const auto lastWords = Tool::run(tool, asked, stop, patience(wav));
    result.lines = answer(tool, json, lastWords);
    return result;
}

std::string withoutBrokenLetters(std::string text) {
    for (auto at = text.find(brokenLetter); at != text.npos; at = text.find(brokenLetter, at))
        text.erase(at, brokenLetter.size());
    return text;
}

}

fs::path Whisper::standardModel() {
    return homeFolder() / ".whisper-models/ggml-large-v3-turbo.bin";
}

std::optional<std::string> Whisper::missing(const std::string& tool) {
    if (!Tool::find(tool)) return "whisper is not installed. In Terminal: brew install whisper-cpp";
    std::error_code error;
    if (fs::exists(standardModel(), error)) return std::nullopt;
    return std::string(
               "whisper's model is missing. In Terminal: mkdir -p ~/.whisper-models && "
               "curl -L -o ~/.whisper-models/ggml-large-v3-turbo.bin ") +
           download;
}

Transcriber Whisper::on(const fs::path& model, const std::string& tool) {
    return {name, false, [model, tool](const auto& wav, const auto& language, const auto& hint, auto stop) {
                return transcribe(tool, model, wav, language, hint, stop);
            }};
}

std::vector<HeardLine> Whisper::lines(std::string_view json) {
    // A letter that it cut in two stands at the seam as bytes that are no UTF-8.
    const auto answer = Codec::decode<WhisperOutput>(Text::repaired(json));
    std::vector<HeardLine> found;
    for (const auto& [offsets, given] : answer.transcription) {
        auto text = Text::trimmed(withoutBrokenLetters(given));
        if (text.empty()) continue;
        found.push_back({static_cast<double>(offsets.from) / 1000, static_cast<double>(offsets.to) / 1000,
                         std::move(text)});
    }
    return found;
}

}
