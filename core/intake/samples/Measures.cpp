#include "core/intake/samples/Measures.h"

#include "platform/base/Files.h"

namespace murbo::Measures {

std::filesystem::path place(const std::filesystem::path& cache, std::string_view kind, const Source& source,
                            std::string_view extension) {
    return cache / kind / (source.id.text() + std::string(extension));
}

std::string kept(const std::filesystem::path& file, std::size_t max) {
    try {
        return Files::readWhole(file, max);
    } catch (const Problem&) {
        return {};
    }
}

void keep(const std::filesystem::path& file, std::string_view bytes) {
    try {
        // A package that somebody has moved away must not be there again for the sake of its cache.
        std::error_code error;
        const auto cache = file.parent_path().parent_path();
        if (!std::filesystem::is_directory(cache.parent_path(), error)) return;
        Files::createFolder(file.parent_path());
        Files::writeWhole(file, bytes);
    } catch (const Problem&) {
    }
}

}
