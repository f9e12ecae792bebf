#include "app/desktop/exports/MovieChecks.h"

#include "app/desktop/timeline/SpokenTimes.h"
#include "app/desktop/viewer/PickedPlace.h"
#include "core/render/stage/PlaybookMedia.h"

#include <QRectF>
#include <QString>
#include <algorithm>

namespace murbo::MovieChecks {
namespace {

constexpr qsizetype maxQuoted = 28; ///< letters of what is said that a finding quotes

std::string quoted(const std::string& text) {
    const auto words = QString::fromStdString(text).simplified();
    const auto shown = words.size() > maxQuoted ? words.left(maxQuoted - 1).trimmed() + "…" : words;
    return ("“" + shown + "”").toStdString();
}

std::string lineAt(const Project& project, const UUID& source, const Stretch& said) {
    for (const auto& line : project.transcript(source).lines)
        if (!line.isGone() && line.start == said.from && line.end == said.to) return line.text;
    return "";
}

/// The rectangle of the frame that a caption fills at its middle; nothing where it has no picture.
std::optional<QRectF> filled(PickedPlace::MeasureOrder& order, const CaptionCue& cue, PlaybookMedia& media) {
    order.pick = {Pick::Kind::caption, cue.line, cue.piece};
    order.time = (cue.start + cue.end) / 2;
    const auto measured = PickedPlace::measure(order, media);
    const auto placed = PickedPlace::placed(order.plan, order.pick, order.time);
    if (!measured || !placed) return {};
    const auto box = PickedPlace::box(*measured, *placed, order.plan.frame);
    const auto half = box.size() / 2;
    QRectF all(box.centre(), QSizeF(0, 0));
    for (const double x : {-half.width(), half.width()})
        for (const double y : {-half.height(), half.height()}) {
            const auto corner = box.onFrame({x, y});
            all = all.united(QRectF(corner, QSizeF(1, 1)));
        }
    return all;
}

/// The apps that would cover a part of it, as one says them.
std::string coveredBy(const QRectF& rect, const Size& frame, const std::vector<CoveredEdges>& apps) {
    std::string names;
    for (const auto& app : apps) {
        const QRectF safe(QPointF(app.left * frame.width, app.top * frame.height),
                          QPointF((1 - app.right) * frame.width, (1 - app.bottom) * frame.height));
        if (!safe.contains(rect)) names += (names.empty() ? "" : ", ") + app.app;
    }
    return names;
}

std::string lettersWithoutFont(const CaptionCue& cue, const Plan& plan) {
    QString letters;
    for (const auto letter : CaptionPicture::missing(PickedPlace::picture(cue, plan)))
        letters += QString::fromUcs4(&letter, 1);
    return letters.toStdString();
}

}

std::vector<Finding> ofCuts(const Project& project, const Video& video, const std::set<UUID>& missing) {
    std::vector<Finding> found;
    SpokenTimes spoken;
    double from = 0;
    for (std::size_t at = 0; at < video.cuts.size(); ++at) {
        const auto& cut = video.cuts[at];
        const double to = from + cut.length();
        const Pick pick{Pick::Kind::cut, cut.id, {}};
        const auto name = "Cut " + std::to_string(at + 1);
        const auto look = [&](bool start, const char* words, double time) {
            const auto said = spoken.around(project, cut.source, start ? cut.start : cut.end);
            if (!said) return;
            found.push_back({name + words + quoted(lineAt(project, cut.source, *said)), pick, time,
                             Finding::BetterEdge{start, start ? said->from : said->to}});
        };
        if (!cut.generator && missing.contains(cut.source))
            found.push_back({name + " has no file: it would be black and silent", pick, from, {}});
        else if (!cut.generator && !cut.muted.value_or(false)) {
            if (at == 0 || !SpokenTimes::goesOn(video.cuts[at - 1], cut)) look(true, " starts inside ", from);
            if (at + 1 == video.cuts.size() || !SpokenTimes::goesOn(cut, video.cuts[at + 1]))
                look(false, " ends inside ", std::max(from, to - 0.5));
        }
        from = to;
    }
    return found;
}

std::vector<Finding> ofCaptions(const Plan& plan, const std::vector<CoveredEdges>& apps,
                                std::stop_token stop) {
    std::vector<Finding> found;
    PlaybookMedia media;
    PickedPlace::MeasureOrder order{plan, {}, 0};
    const auto count = std::min(plan.cues.size(), maxCaptions);
    for (std::size_t at = 0; at < count && !stop.stop_requested(); ++at) {
        const auto& cue = plan.cues[at];
        const auto rect = filled(order, cue, media);
        const auto name = "Caption " + quoted(cue.text);
        if (const auto letters = lettersWithoutFont(cue, plan); !letters.empty())
            found.push_back(
                {name + " has letters that no font here has: " + letters, order.pick, order.time, {}});
        if (!rect) continue;
        if (const auto names = coveredBy(*rect, plan.frame, apps); !names.empty())
            found.push_back({name + " leaves the safe area of " + names, order.pick, order.time, {}});
    }
    return found;
}

}
