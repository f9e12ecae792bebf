#include "platform/media/MediaFile.h"

#include "platform/media/Facts.h"

namespace murbo {

MediaFacts MediaFile::facts(const std::filesystem::path& path) {
    return Facts::of(Demuxer(path));
}

}
