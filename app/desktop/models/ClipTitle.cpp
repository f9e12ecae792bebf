#include "app/desktop/models/ClipTitle.h"

#include "core/model/Clip.h"

std::string murbo::ClipTitle::besideTag(const Clip& clip) {
    auto title = clip.title(clip.tag());
    const auto end = " · " + clip.tag();
    if (title.ends_with(end)) title.resize(title.size() - end.size());
    return title;
}
