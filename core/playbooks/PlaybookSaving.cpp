#include "core/playbooks/JsonChanges.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/PlaybookCheck.h"
#include "core/playbooks/PlaybookCodec.h"
#include "core/playbooks/Playbooks.h"
#include "platform/base/Dates.h"
#include "platform/base/Descriptor.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/base/SystemError.h"
#include "platform/base/Text.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace murbo::Playbooks {

namespace {

namespace fs = std::filesystem;

constexpr const char* fileName = "playbook.json";
constexpr std::size_t longestStem = 200; ///< bytes; leaves room for a number and the ending
constexpr std::size_t maxLogBytes = std::size_t{64} << 20;

/// A line of a playbook's own log.
struct LogLine {
    std::string by;
    std::vector<std::string> changes;
    std::string date;
    std::int64_t version = 1;

    static constexpr auto fields(auto visit) {
        return visit(field("by", &LogLine::by), field("changes", &LogLine::changes),
                     field("date", &LogLine::date), field("version", &LogLine::version));
    }
};

constexpr std::size_t maxAssets = 1000;
constexpr const char* workName = ".saving-";

/// Takes away what saves have left that were killed. One that is an hour old is nobody's any more.
void sweep(const fs::path& library) {
    std::error_code error;
    std::error_code ignored;
    for (fs::directory_iterator at(library, error), end; !error && at != end; at.increment(error)) {
        if (!at->path().filename().string().starts_with(workName)) continue;
        const auto touched = at->last_write_time(ignored);
        if (!ignored && fs::file_time_type::clock::now() - touched > std::chrono::hours(1))
            fs::remove_all(at->path(), ignored);
    }
}

/// A folder beside a playbook's that goes when nobody has put it in its place.
class WorkFolder {
public:
    explicit WorkFolder(const fs::path& library) : path(library / (workName + UUID::make().text())) {
        sweep(library);
        Files::createFolder(path);
    }
    ~WorkFolder() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    const fs::path path;
};

[[noreturn]] void fail(const std::string& what, const std::error_code& error) {
    throw Problem(what + ": " + SystemError::cause(error.value()) + ".");
}

/// The book of the owner's that a playbook replaces.
std::optional<Book> replaced(const Playbook& playbook) {
    if (!playbook.id || playbook.id->starts_with("stock.")) return std::nullopt;
    auto found = find(*playbook.id);
    return found && found->folder ? found : std::nullopt;
}

fs::path freeFolder(const std::string& name) {
    std::string stem = Text::trimmedOfBlanks(name);
    for (char& c : stem)
        if (c == '/' || c == ':' || c == '\0') c = '-';
    stem = Text::beginning(stem, longestStem);
    if (stem.empty() || stem.starts_with('.')) stem = "Playbook" + stem;
    const auto named = [](const std::string& text) { return Library::playbooks() / (text + ".mbplay"); };
    auto folder = named(stem);
    std::error_code ignored;
    for (int n = 2; fs::exists(folder, ignored); ++n) folder = named(stem + " " + std::to_string(n));
    return folder;
}

void copyIn(const Asset& asset, const fs::path& work) {
    const auto to = Files::inside(work / "assets", asset.name);
    if (!to || asset.name.empty() || *to == work / "assets")
        throw Problem("“" + asset.name + "” is no name for a file of a playbook.");
    Files::copy(asset.from, *to);
}

std::vector<std::string> changes(const Book& before, const Playbook& after,
                                 const std::vector<Asset>& assets) {
    auto lines = JsonChanges::lines(encoded(before.playbook), encoded(after));
    for (const auto& asset : assets) lines.push_back("added assets/" + asset.name);
    return lines;
}

void keepVersion(const Book& before, const fs::path& work) {
    Files::createFolder(work / "versions");
    Files::writeWhole(work / "versions" / (std::to_string(before.version()) + ".json"),
                      Files::readWhole(*before.folder / fileName, Playbook::maxBytes));
}

void log(const LogLine& line, const fs::path& work) {
    const auto file = work / "changes.jsonl";
    std::error_code ignored;
    const auto before = fs::exists(file, ignored) ? Files::readWhole(file, maxLogBytes) : std::string();
    Files::writeWhole(file, before + Codec::encode(line, JsonWriter::Layout::compact) + "\n");
}

/// For file systems that know no exchange: the old folder steps aside for a moment, and back if need be.
/// Where it can't step back it stays, under a name that no sweep takes away.
void replaceByTurns(const fs::path& work, const fs::path& folder) {
    const auto aside = folder.parent_path() / (".replaced-" + UUID::make().text());
    std::error_code error, back;
    const bool replacing = fs::exists(folder, error);
    if (replacing) fs::rename(folder, aside, error);
    if (error) fail("The playbook could not be saved", error);
    fs::rename(work, folder, error);
    if (error && replacing) fs::rename(aside, folder, back);
    if (back)
        fail("The playbook could not be saved, and lies in “" + aside.filename().string() + "” now", back);
    if (error) fail("The playbook could not be saved", error);
    fs::remove_all(aside, error);
}

/// One folder in the place of another; both names hold a whole folder at every moment.
void putInPlace(const fs::path& work, const fs::path& folder) {
    std::error_code ignored;
    const unsigned flags = fs::exists(folder, ignored) ? RENAME_EXCHANGE : RENAME_NOREPLACE;
    if (renameat2(AT_FDCWD, work.c_str(), AT_FDCWD, folder.c_str(), flags) == 0) return;
    const int cause = errno;
    if (cause != EINVAL && cause != ENOSYS)
        fail("The playbook could not be saved", {cause, std::generic_category()});
    replaceByTurns(work, folder);
}

/// One save at a time into a library: two at once would make one version, and one of them would be lost.
/// Where a file system knows no locks, nobody waits.
class SavingLock {
public:
    explicit SavingLock(const fs::path& library)
        : folder(::open(library.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (folder >= 0 && ::flock(folder, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            if (std::chrono::steady_clock::now() > patience)
                throw Problem("Another program is saving a playbook. Try again in a moment.");
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }

private:
    Descriptor folder;
};

/// All of a folder, flushed: the one that it was copied from goes when this one is in its place.
void copyFolder(const fs::path& from, const fs::path& to) {
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        const auto there = to / entry.path().lexically_relative(from);
        if (entry.is_symlink())
            fs::copy_symlink(entry.path(), there);
        else if (entry.is_directory())
            Files::createFolder(there);
        else if (entry.is_regular_file())
            Files::copy(entry.path(), there);
    }
}

/// The folder that a book stands in, where any link to it leads.
fs::path standing(const Book& book) {
    std::error_code error;
    const auto folder = fs::canonical(*book.folder, error);
    if (error) fail("“" + book.playbook.name + "” could not be read", error);
    return folder;
}

std::int64_t versionAfter(const Book& before) {
    if (before.version() == std::numeric_limits<std::int64_t>::max())
        throw Problem("“" + before.playbook.name + "” has no versions left.");
    return before.version() + 1;
}

}

namespace {

/// A playbook that is not there yet gets an id of its own, unless it keeps the one that it has.
Book save(Playbook playbook, const std::vector<Asset>& assets, const std::string& by, bool keepsId) {
    Files::createFolder(Library::playbooks());
    const SavingLock lock(Library::playbooks());
    dropListing(); // others may have saved since it was made
    const auto before = replaced(playbook);
    if (before || !keepsId || !playbook.id) {
        playbook.id = before ? before->id() : UUID::make().text();
        playbook.version = before ? versionAfter(*before) : 1;
    }
    const auto folder = before ? standing(*before) : freeFolder(playbook.name);

    const WorkFolder work(folder.parent_path());
    if (before) {
        try {
            copyFolder(folder, work.path);
        } catch (const fs::filesystem_error& error) {
            fail("“" + playbook.name + "” could not be copied", error.code());
        }
    }
    for (const auto& asset : assets) copyIn(asset, work.path);
    const auto json = encoded(playbook);
    PlaybookCheck::check(json, work.path);
    if (before) keepVersion(*before, work.path);
    log({by, before ? changes(*before, playbook, assets) : std::vector<std::string>{},
         Dates::text(std::chrono::system_clock::now()), *playbook.version},
        work.path);
    Files::writeWhole(work.path / fileName, json);
    putInPlace(work.path, folder);
    dropListing();
    return load(before ? *before->folder : folder);
}

/// The plain files among a playbook's assets.
std::vector<Asset> assetsIn(const fs::path& folder) {
    std::vector<Asset> assets;
    const auto root = folder / "assets";
    std::error_code error;
    for (fs::recursive_directory_iterator at(root, error), end; !error && at != end; at.increment(error)) {
        if (!fs::is_regular_file(at->symlink_status(error))) continue;
        if (assets.size() == maxAssets)
            throw Problem("It has more than " + std::to_string(maxAssets) + " files.");
        assets.push_back({at->path(), at->path().lexically_relative(root).string()});
    }
    return assets;
}

/// An id becomes part of paths in projects; the stock's are the stock's.
bool mayKeep(const std::string& id) {
    return !id.empty() && !id.starts_with("stock.") &&
           id.find_first_of(std::string_view("/\0", 2)) == std::string::npos &&
           id.find("..") == std::string::npos;
}

Book takeIn(const fs::path& given) {
    const bool plain = fs::is_regular_file(given);
    const auto json = Files::readWhole(plain ? given : given / fileName, Playbook::maxBytes);
    PlaybookCheck::check(json, plain ? std::nullopt : std::optional(given));
    auto playbook = Playbook::decode(json);
    if (!playbook.id || !mayKeep(*playbook.id)) playbook.id.reset();
    const auto assets = plain ? std::vector<Asset>() : assetsIn(given);
    if (const auto mine = replaced(playbook)) {
        auto same = mine->playbook;
        same.version = playbook.version;
        if (same == playbook) return *mine;
    }
    playbook.version = std::max<std::int64_t>(playbook.version.value_or(1), 1);
    return save(std::move(playbook), assets, "import", true);
}

}

Book write(Playbook playbook, const std::vector<Asset>& assets, const std::string& by) {
    return save(std::move(playbook), assets, by, false);
}

Book bringIn(const fs::path& given) try { return takeIn(given); } catch (const fs::filesystem_error& error) {
    fail("“" + Text::repaired(given.filename().string()) + "” could not be read", error.code());
} catch (const Problem& problem) {
    throw Problem("“" + Text::repaired(given.filename().string()) + "” did not come into the library. " +
                  problem.message());
}

}
