#include "core/model/package/Activity.h"

#include "platform/base/Codec.h"
#include "platform/base/Descriptor.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace murbo {
namespace {

namespace fs = std::filesystem;

constexpr const char* fileName = "activity.jsonl";
constexpr std::size_t largest = std::size_t{1} << 30; // bytes; years of work

/// An entry as it stands in the file, its dates as texts.
struct Logged {
    std::string kind;
    std::string title;
    std::optional<std::string> engine;
    std::string started;
    std::optional<std::string> ended;
    std::string state;
    std::optional<double> cost;
    std::optional<std::string> error;
    std::optional<std::string> request;
    std::optional<std::string> reply;

    static constexpr auto fields(auto visit) {
        return visit(field("kind", &Logged::kind), field("title", &Logged::title),
                     field("engine", &Logged::engine), field("started", &Logged::started),
                     field("ended", &Logged::ended), field("state", &Logged::state),
                     field("cost", &Logged::cost), field("error", &Logged::error),
                     field("request", &Logged::request), field("reply", &Logged::reply));
    }
};
static_assert(Record<Logged>);

std::string line(const Activity& entry) {
    const auto ended = entry.ended ? std::optional(Dates::text(*entry.ended)) : std::nullopt;
    return Codec::encode(Logged{entry.kind, entry.title, entry.engine, Dates::text(entry.started), ended,
                                entry.state, entry.cost, entry.error, entry.request, entry.reply},
                         JsonWriter::Layout::compact);
}

Date date(const std::string& text) {
    const auto parsed = Dates::parse(text);
    if (!parsed) throw Problem("“" + text + "” is no date.");
    return *parsed;
}

Activity entry(std::string_view line) {
    auto read = Codec::decode<Logged>(line);
    const auto ended = read.ended ? std::optional(date(*read.ended)) : std::nullopt;
    return {std::move(read.kind),
            std::move(read.title),
            std::move(read.engine),
            date(read.started),
            ended,
            std::move(read.state),
            read.cost,
            std::move(read.error),
            std::move(read.request),
            std::move(read.reply)};
}

/// Whether what stands in the file ends in the middle of a line, as after a crash.
bool endsMidLine(int file) {
    struct stat facts {};
    char last = '\n';
    return ::fstat(file, &facts) == 0 && facts.st_size > 0 &&
           ::pread(file, &last, 1, facts.st_size - 1) == 1 && last != '\n';
}

}

void Activity::log(const Activity& entry, const fs::path& package) try {
    auto text = line(entry) + "\n";
    const Descriptor file(
        ::open((package / fileName).c_str(), O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
    if (file < 0) return;
    if (endsMidLine(file)) text.insert(text.begin(), '\n');
    // One call for the whole line: others may be adding theirs.
    while (::write(file, text.data(), text.size()) < 0 && errno == EINTR) {
    }
} catch (const Problem&) {
}

std::vector<Activity> Activity::read(const fs::path& package) try {
    const auto text = Files::readWhole(package / fileName, largest);
    std::vector<Activity> entries;
    for (std::string_view rest = text; !rest.empty();) {
        const auto end = rest.find('\n');
        const auto piece = rest.substr(0, end);
        rest = end == rest.npos ? "" : rest.substr(end + 1);
        try {
            if (!piece.empty()) entries.push_back(entry(piece));
        } catch (const Problem&) {
            continue;
        }
    }
    return entries;
} catch (const Problem&) {
    return {};
}

}
