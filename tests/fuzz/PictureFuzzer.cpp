#include "platform/base/Descriptor.h"
#include "platform/media/PictureBytes.h"
#include "platform/media/PictureFile.h"
#include "tests/fuzz/RoundTrip.h"

#include <sys/mman.h>

using namespace murbo;

namespace {

using Kind = PictureHeader::Kind;

constexpr std::int64_t longest = 512; // larger ones are left to the decoders' own fuzzing
constexpr double kept = 1000;

void checkBytes(const std::string& file) {
    for (const Kind kind : {Kind::png, Kind::jpeg, Kind::webp, Kind::gif}) {
        const auto picture = PictureBytes::of(kind, file);
        require(picture.bytes.size() <= file.size() + 64, "more bytes come out than went in");
        require(picture.orientation >= 1 && picture.orientation <= 8, "there is no such orientation");
    }
}

void readWhole(const std::string& file) {
    const Descriptor memory(memfd_create("picture", MFD_CLOEXEC));
    require(memory >= 0 && write(memory, file.data(), file.size()) == ssize_t(file.size()), "no memory");
    const std::filesystem::path path = "/proc/self/fd/" + std::to_string(int(memory));
    const auto header = PictureHeader::read(path);
    if (!header || header->kind == Kind::avif || std::max(header->width, header->height) > longest) return;
    try {
        const Bitmap bitmap = PictureFile::read(path, kept);
        require(bitmap.width() * bitmap.height() <= kept * 1.2 + 512, "it was not made smaller");
    } catch (const Problem&) { // no picture
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string file(reinterpret_cast<const char*>(bytes), size);
    checkBytes(file);
    readWhole(file);
    return 0;
}
