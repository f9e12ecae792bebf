#include "app/desktop/exports/DeliveryCheck.h"

#include "app/editor/Editor.h"
#include "app/editor/commands/CutCommands.h"
#include "core/model/Settings.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr double upright = 0.6; ///< width over height, up to which the apps' areas are known: 9:16

std::vector<MovieChecks::CoveredEdges> edges(const QVariantList& list) {
    std::vector<MovieChecks::CoveredEdges> apps;
    for (const auto& entry : list) {
        const auto app = entry.toMap();
        apps.push_back({app["name"].toString().toStdString(), app["left"].toDouble(), app["top"].toDouble(),
                        app["right"].toDouble(), app["bottom"].toDouble()});
    }
    return apps;
}

bool hasAreas(const Size& frame) {
    return frame.width <= upright * frame.height;
}

/// Whether what is said in all the cuts has been written down.
bool isWrittenDown(const Project& project, const Video& video) {
    return std::ranges::none_of(video.cuts, [&](const Cut& cut) {
        return !cut.generator && !cut.muted.value_or(false) && project.transcript(cut.source).lines.empty();
    });
}

}

DeliveryCheck::DeliveryCheck(Editor& session, const QVariantList& areas, QObject* parent)
    : QObject(parent), editor(session), apps(edges(areas)) {
    const auto follow = [this] {
        if (watching) check();
    };
    connect(&editor, &Editor::projectChanged, this, follow);
    connect(&editor, &Editor::openVideoChanged, this, follow);
    connect(&editor, &Editor::missingChanged, this, follow);
}

DeliveryCheck::~DeliveryCheck() {
    stopping.request_stop();
    background.finish();
}

void DeliveryCheck::begin() {
    watching = true;
    check();
}

void DeliveryCheck::end() {
    watching = false;
    stopping.request_stop();
}

void DeliveryCheck::check() {
    cuts.clear();
    captions.clear();
    if (const auto* video = editor.video())
        cuts = MovieChecks::ofCuts(editor.project(), *video, editor.missing());
    stale = true;
    stopping.request_stop();
    if (!busy) checkCaptions();
    sort();
}

void DeliveryCheck::checkCaptions() {
    stale = false;
    const auto* video = editor.video();
    if (!video || !watching) return;
    busy = true;
    stopping = {};
    auto plan = Plan::video(*video, editor.project(), Settings::captionFonts(), editor.package());
    auto found = std::make_shared<std::vector<MovieChecks::Finding>>();
    cues = plan.cues.size();
    const auto areas = hasAreas(plan.frame) ? apps : std::vector<MovieChecks::CoveredEdges>();
    background.start([plan = std::move(plan), areas, found,
                      stop = stopping.get_token()] { *found = MovieChecks::ofCaptions(plan, areas, stop); },
                     [this, found] {
                         busy = false;
                         if (stale)
                             checkCaptions();
                         else
                             captions = std::move(*found);
                         sort();
                     });
}

void DeliveryCheck::sort() {
    all = cuts;
    all.insert(all.end(), captions.begin(), captions.end());
    std::ranges::stable_sort(all, {}, &MovieChecks::Finding::time);
    emit changed();
}

QVariantList DeliveryCheck::findings() const {
    QVariantList list;
    for (const auto& finding : all)
        list.append(QVariantMap{{"words", QString::fromStdString(finding.words)},
                                {"fixable", finding.fix.has_value()}});
    return list;
}

QString DeliveryCheck::state() const {
    if (busy) return "checking…";
    return all.empty() ? "checked just now" : QString("%1 to look at").arg(all.size());
}

QString DeliveryCheck::allGood() const {
    const auto* video = editor.video();
    if (busy || !video) return "";
    QStringList good;
    if (cuts.empty())
        good << (isWrittenDown(editor.project(), *video) ? "all cuts have their files, and nobody is cut off"
                                                         : "all cuts have their files");
    if (captions.empty() && cues > 0) {
        const auto which = cues > MovieChecks::maxCaptions
                               ? QString("the first %1 captions").arg(MovieChecks::maxCaptions)
                               : QString("captions");
        good << which + (hasAreas(Plan::frameSize(video->aspect))
                             ? " within the safe areas, all letters found"
                             : " with all letters found");
    }
    auto words = good.join(" · ");
    if (!words.isEmpty()) words[0] = words[0].toUpper();
    return words;
}

void DeliveryCheck::show(int at) {
    if (at < 0 || at >= static_cast<int>(all.size())) return;
    const auto finding = all[static_cast<std::size_t>(at)];
    editor.setFocus(Viewer::video);
    editor.setPicked(finding.pick);
    editor.playback.seek(finding.time);
}

void DeliveryCheck::fix(int at) {
    if (at < 0 || at >= static_cast<int>(all.size())) return;
    const auto finding = all[static_cast<std::size_t>(at)];
    if (!finding.fix) return;
    const bool start = finding.fix->start;
    CutCommands::trim(editor, finding.pick.id, start, finding.fix->to);
    // Not as a hand ends it, which plays the edit: nobody watches that through a sheet.
    editor.setEdge(std::nullopt);
    editor.setEdgeAfter(std::nullopt);
    editor.closeDrag(start ? "Trim Start" : "Trim End");
    editor.reloadVideo(std::nullopt);
}

}
