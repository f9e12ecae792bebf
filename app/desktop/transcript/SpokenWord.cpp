#include "app/desktop/transcript/SpokenWord.h"

#include "core/render/plan/CaptionText.h"

#include <algorithm>

namespace murbo::SpokenWord {
namespace {

qsizetype units(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).size();
}

}

SpokenRange at(const QString& line, double share) {
    const auto bytes = line.toStdString();
    const std::string_view text = bytes;
    const auto wanted = std::clamp(share, 0.0, 1.0) * static_cast<double>(line.size());
    SpokenRange last;
    for (const auto& word : CaptionText::words(text)) {
        last.from = units(text.substr(0, word.from));
        last.to = last.from + units(text.substr(word.from, word.to - word.from));
        if (static_cast<double>(last.to) > wanted) break;
    }
    return last;
}

double share(const QString& line, qsizetype place) {
    if (line.isEmpty()) return 0;
    return std::clamp(static_cast<double>(place) / static_cast<double>(line.size()), 0.0, 1.0);
}

}
