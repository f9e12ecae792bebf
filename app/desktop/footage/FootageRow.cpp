#include "app/desktop/footage/FootageRow.h"

#include "core/intake/Intake.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"
#include "platform/media/MediaFile.h"

#include <QLocale>
#include <QStringList>
#include <cmath>

namespace murbo {
namespace {

/// How the picture comes, and what about it may surprise.
QStringList facts(const MediaFacts& facts) {
    QStringList words;
    if (const auto& picture = facts.picture) {
        words << QString("%1 × %2")
                     .arg(std::lround(picture->size.width))
                     .arg(std::lround(picture->size.height));
        const double rate = picture->nominalRate > 0 ? picture->nominalRate : picture->meanRate;
        if (rate > 0) words << QString::number(std::round(rate * 100) / 100) + " fps";
        if (picture->variableRate) words << "variable rate";
        if (picture->quarterTurns % 4 != 0) words << "turned upright";
        if (picture->interlaced) words << "interlaced";
        if (picture->highDynamicRange) words << "HDR";
    }
    if (!facts.sound || facts.sound->tracks == 0) words << "no sound";
    if (facts.sound && facts.sound->tracks > 1) words << QString("%1 sound tracks").arg(facts.sound->tracks);
    return words;
}

}

FootageRow FootageRow::of(const std::filesystem::path& file) {
    FootageRow row;
    row.path = file;
    row.name = QString::fromStdString(Text::repaired(file.filename().string()));
    std::error_code error;
    const auto bytes = std::filesystem::file_size(file, error);
    if (!error) row.size = QLocale().formattedDataSize(static_cast<qint64>(bytes));
    if (!Intake::isMovie(file)) {
        row.looked = true;
        row.problem = "not a movie file";
    }
    return row;
}

void FootageRow::look() {
    if (looked) return;
    looked = true;
    try {
        if (!Text::isUtf8(path.string())) throw Problem("its name is not UTF-8");
        const auto known = MediaFile::facts(path);
        if (!std::isfinite(known.length) || known.length <= 0) throw Problem("it has no length");
        length = known.length;
        detail = facts(known).join(" · ");
    } catch (const Problem& error) {
        problem = QString::fromStdString(error.message());
    }
}

}
