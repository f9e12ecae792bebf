#include "core/playbooks/Playbooks.h"

#include "core/playbooks/JsonChanges.h"
#include "core/playbooks/Library.h"
#include "core/playbooks/PlaybookCodec.h"
#include "core/playbooks/Stock.h"
#include "platform/base/Files.h"
#include "platform/base/Names.h"
#include "platform/base/Problem.h"

#include <chrono>

namespace murbo::Playbooks {
namespace {

namespace fs = std::filesystem;
using Time = std::chrono::steady_clock;

constexpr const char* extension = ".mbplay";
constexpr auto listingHolds = std::chrono::seconds(3);

using Books = std::shared_ptr<const std::vector<Book>>;

struct Listing {
    fs::path folder;
    Time::time_point made;
    Books books;
};
std::mutex listingLock;
std::optional<Listing> listing;

std::vector<fs::path> playbookFolders(const fs::path& folder) {
    std::vector<fs::path> folders;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (entry->path().extension() == extension) folders.push_back(entry->path());
    std::sort(folders.begin(), folders.end());
    return folders;
}

std::optional<Book> loaded(const fs::path& folder) {
    try {
        return load(folder);
    } catch (const Problem&) {
        return std::nullopt;
    }
}

Books listed(const fs::path& folder) {
    std::vector<Book> books;
    for (const auto& path : playbookFolders(folder))
        if (auto book = loaded(path)) books.push_back(std::move(*book));
    std::stable_sort(books.begin(), books.end(), [](const Book& a, const Book& b) {
        return Names::before(a.playbook.name, b.playbook.name);
    });
    return std::make_shared<const std::vector<Book>>(std::move(books));
}

Books owners() {
    const auto folder = Library::playbooks();
    {
        const std::lock_guard held(listingLock);
        if (listing && listing->folder == folder && Time::now() - listing->made < listingHolds)
            return listing->books;
    }
    auto books = listed(folder);
    const std::lock_guard held(listingLock);
    listing = Listing{folder, Time::now(), books};
    return books;
}

/// An id becomes a part of a path, and comes out of files that anybody may have written.
bool isSafe(const std::string& id) {
    return !id.empty() && id.find('/') == std::string::npos && id.find("..") == std::string::npos &&
           id.find('\0') == std::string::npos;
}

fs::path copyFolder(const std::string& id, std::int64_t version, const fs::path& project) {
    return project / "playbooks" / (id + "@" + std::to_string(version) + extension);
}

/// The files of a playbook that its copy needs, each within its own folder.
void copyAssets(const Book& book, const fs::path& to) {
    if (!book.folder) return;
    std::error_code error;
    const auto assets = *book.folder / "assets";
    for (fs::recursive_directory_iterator entry(assets, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto name = entry->path().lexically_relative(*book.folder);
        const auto file = book.file(name.string());
        std::error_code missing;
        if (file && fs::is_regular_file(*file, missing)) Files::copy(*file, to / name);
    }
}

}

void dropListing() {
    const std::lock_guard held(listingLock);
    listing.reset();
}

Book load(const std::filesystem::path& folder) {
    Book book{Playbook::decode(Files::readWhole(folder / "playbook.json", Playbook::maxBytes)), folder};
    if (!book.playbook.id) book.playbook.id = folder.stem().string();
    return book;
}

std::vector<Book> library() {
    auto books = *owners();
    books.insert(books.end(), Stock::books().begin(), Stock::books().end());
    return books;
}

std::vector<LeftOut> leftOut() {
    std::vector<LeftOut> list;
    for (const auto& path : playbookFolders(Library::playbooks())) {
        try {
            load(path);
        } catch (const Problem& error) {
            list.push_back({path, error.message()});
        }
    }
    return list;
}

std::optional<Book> find(const std::string& id) {
    const auto own = owners();
    for (const auto* books : {own.get(), &Stock::books()})
        for (const auto& book : *books)
            if (book.id() == id) return book;
    return std::nullopt;
}

std::optional<Book> copy(const std::string& id, std::int64_t version, const std::filesystem::path& project) {
    if (!isSafe(id)) return std::nullopt;
    return loaded(copyFolder(id, version, project));
}

std::optional<Book> book(const std::string& id, std::optional<std::int64_t> version,
                         const std::optional<std::filesystem::path>& project) {
    if (version && project)
        if (auto pinned = copy(id, *version, *project)) return pinned;
    auto found = find(id);
    if (!found || !version || *version == found->version() || !found->folder) return found;
    return std::nullopt;
}

Book copy(const Book& book, const std::filesystem::path& project) {
    if (!isSafe(book.id()))
        throw Problem("“" + book.playbook.name + "” has an id that can't be the name of a folder.");
    const auto folder = copyFolder(book.id(), book.version(), project);
    if (auto pinned = loaded(folder)) return *pinned;
    // The JSON comes last: a folder without it counts as no copy, and the next pinning makes it whole.
    Files::createFolder(folder);
    copyAssets(book, folder);
    Files::writeWhole(folder / "playbook.json", encoded(book.playbook));
    return load(folder);
}

std::string encoded(const Playbook& playbook) {
    return Codec::encode(playbook);
}

std::vector<std::string> diff(std::string_view before, std::string_view after) {
    return JsonChanges::lines(before, after);
}

}
