#include "app/desktop/inspector/TypedTime.h"

#include <QStringList>

namespace murbo::TypedTime {
namespace {

constexpr double longest = 3600.0 * 1000;
constexpr double sixty = 60;
constexpr int maxParts = 3; // hours, minutes, seconds

bool isPlain(const QString& part) {
    for (const auto letter : part)
        if (!letter.isDigit() && letter != '.') return false;
    return !part.isEmpty();
}

}

std::optional<double> seconds(const QString& typed) {
    auto words = typed.trimmed().toLower().replace(',', '.');
    if (words.endsWith('s')) words = words.chopped(1).trimmed();
    const auto parts = words.split(':');
    if (parts.size() > maxParts) return {};
    double time = 0;
    for (const auto& part : parts) {
        const bool last = &part == &parts.back();
        bool fits = false;
        const double number = part.toDouble(&fits);
        if (!fits || !isPlain(part) || (!last && part.contains('.'))) return {};
        time = time * sixty + number;
    }
    if (time > longest) return {};
    return time;
}

}
