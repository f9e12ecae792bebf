#include "platform/media/MediaFile.h"

#include "platform/media/Facts.h"

#include <compare>
#include <ctime>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include <sys/stat.h>

namespace murbo {
namespace {

constexpr std::size_t maxKept = 200; ///< files
constexpr std::int64_t settled = 2; ///< seconds since a change, after which the next gives a file other times
constexpr std::int64_t second = 1'000'000'000;

/// What another content of a file has another of.
struct MediaStamp {
    std::string path; ///< its ending has a say in what it is taken for
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t written = 0; ///< nanoseconds
    std::int64_t changed = 0; ///< also by a rename or other permissions
    auto operator<=>(const MediaStamp&) const = default;
};

/// Nothing where the file may change yet without its times doing so.
std::optional<MediaStamp> stampOf(const std::filesystem::path& path) {
    struct stat is {};
    if (::stat(path.c_str(), &is) != 0 || !S_ISREG(is.st_mode)) return {};
    const auto nanoseconds = [](const timespec& time) { return time.tv_sec * second + time.tv_nsec; };
    const MediaStamp stamp{path.string(),          is.st_dev, is.st_ino, is.st_size, nanoseconds(is.st_mtim),
                           nanoseconds(is.st_ctim)};
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (nanoseconds(now) < std::max(stamp.written, stamp.changed) + settled * second) return {};
    return stamp;
}

std::mutex lock; ///< guards `kept`
std::map<MediaStamp, MediaFacts> kept;

}

/// Opening a recording of hours takes some ten milliseconds, and a session asks with every change of a cut.
MediaFacts MediaFile::facts(const std::filesystem::path& path) {
    const auto stamp = stampOf(path);
    if (stamp) {
        const std::lock_guard hold(lock);
        if (const auto found = kept.find(*stamp); found != kept.end()) return found->second;
    }
    const auto read = Facts::of(Demuxer(path));
    if (stamp && stampOf(path) == stamp) {
        const std::lock_guard hold(lock);
        if (kept.size() >= maxKept) kept.clear();
        kept.insert_or_assign(*stamp, read);
    }
    return read;
}

}
