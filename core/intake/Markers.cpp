#include "core/intake/Markers.h"

#include "core/intake/MarkerTable.h"
#include "core/intake/MarkerTime.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

namespace murbo {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t largestFile = 4 << 20;
constexpr int sharedCharacters = 10; // of a name that begins with a date: 2024-05-17

/// Bytes of the line break that `text` begins with; 0 where it begins with none.
std::size_t lineBreak(std::string_view text) {
    if (text.front() >= '\n' && text.front() <= '\r') return 1; // LF, VT, FF, CR
    if (text.starts_with("\xC2\x85")) return 2;                 // next line
    if (text.starts_with("\xE2\x80\xA8") || text.starts_with("\xE2\x80\xA9"))
        return 3; // line, paragraph separator
    return 0;
}

/// The first characters of a name, as a person counts them; nothing where it has fewer.
std::optional<std::string> beginning(const std::string& name) {
    const auto unicode = icu::UnicodeString::fromUTF8(name);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) return {};
    characters->setText(unicode);
    const auto end = characters->next(sharedCharacters);
    if (end == icu::BreakIterator::DONE) return {};
    std::string result;
    unicode.tempSubString(0, end).toUTF8String(result);
    return name.starts_with(result) ? std::optional(result) : std::nullopt;
}

/// The CSV files of a folder, in byte order of their names. A folder that can't be read has none.
std::vector<fs::path> csvFiles(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        if (Text::lowercased(entry->path().extension().string()) == ".csv" && !entry->is_directory(unknown))
            files.push_back(entry->path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::optional<std::string> fromUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) return {};
    icu::UnicodeString unicode;
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        const auto one = static_cast<unsigned char>(bytes[at]),
                   two = static_cast<unsigned char>(bytes[at + 1]);
        unicode.append(static_cast<char16_t>(bigEndian ? one << 8 | two : two << 8 | one));
    }
    std::string text;
    unicode.toUTF8String(text);
    return text;
}

}

std::vector<std::string_view> Markers::lines(std::string_view text) {
    std::vector<std::string_view> result;
    std::size_t start = 0;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t length = at < text.size() ? lineBreak(text.substr(at)) : 1;
        if (length == 0) {
            at++;
            continue;
        }
        if (at > start) result.push_back(text.substr(start, at - start));
        start = at += length;
    }
    return result;
}

std::vector<double> Markers::parse(std::string_view text, std::string_view recording) {
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    const auto all = lines(text);
    std::vector<double> times;
    for (const auto line : all)
        if (const auto marker = MarkerTime::parse(line.substr(0, line.find(',')))) times.push_back(*marker);
    return times.empty() ? MarkerTable::parse(all, recording) : times;
}

std::optional<fs::path> Markers::find(const fs::path& recording) {
    const auto stem = recording.stem().string();
    const auto files = csvFiles(recording.has_parent_path() ? recording.parent_path() : ".");
    std::optional<fs::path> best;
    for (const auto& file : files) {
        const auto name = file.stem().string();
        // All candidates are beginnings of one name, so the longest in bytes is the longest to the eye.
        if (stem.starts_with(name) && (!best || name.size() > best->stem().string().size())) best = file;
    }
    const auto date = beginning(stem);
    if (best || !date) return best;
    for (const auto& file : files)
        if (file.stem().string().starts_with(*date)) return file;
    return {};
}

std::optional<std::string> Markers::text(const fs::path& file) try {
    auto bytes = Files::readWhole(file, largestFile);
    if (bytes.starts_with("\xFF\xFE")) return fromUtf16(std::string_view(bytes).substr(2), false);
    if (bytes.starts_with("\xFE\xFF")) return fromUtf16(std::string_view(bytes).substr(2), true);
    return Text::isUtf8(bytes) ? std::optional(std::move(bytes)) : std::nullopt;
} catch (const Problem&) {
    return {};
}

}
