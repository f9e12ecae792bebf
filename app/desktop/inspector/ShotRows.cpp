#include "app/desktop/inspector/ShotRows.h"

#include "app/desktop/inspector/BookShelf.h"
#include "app/desktop/inspector/ParameterRows.h"
#include "app/desktop/inspector/RowMaker.h"
#include "core/model/ShotMove.h"
#include "core/model/Transition.h"
#include "core/playbooks/Playbooks.h"

namespace murbo::ShotRows {
namespace {

constexpr double maxZoom = 4;
constexpr double percent = 100;
constexpr double minSplit = 10; // percent
constexpr double maxSplit = 90;

std::string layoutOf(const Shot& shot) {
    return shot.playbook.value_or(std::string(rawText(shot.layout)));
}

void setLayout(Shot& shot, const std::string& layout) {
    shot.values.reset();
    if (const auto plain = fromRawText<Shot::Layout>(layout)) {
        shot.layout = *plain;
        shot.playbook.reset();
        shot.version.reset();
    } else if (const auto book = Playbooks::find(layout)) {
        shot.layout = Shot::Layout::split;
        shot.playbook = book->id();
        shot.version = book->version();
    }
}

/// The ease goes with the move, for nothing shows it then.
void setMove(Shot& shot, const std::optional<std::string>& move) {
    shot.move = move;
    if (!move) shot.ease.reset();
}

std::optional<double> share(const QVariant& value) {
    const auto number = RowMaker::numberOf(value);
    return number ? std::optional(*number / percent) : std::nullopt;
}

}

InspectorRowList of(const Shot& shot, const Framing& framing, bool upright, BookShelf& shelf) {
    InspectorRowList rows;
    if (upright)
        rows.push_back(
            RowMaker::special("layout", InspectorRow::Control::layouts, RowMaker::said(layoutOf(shot))));
    rows.push_back(RowMaker::section("Adjust"));
    rows.push_back(RowMaker::number("zoom", "Zoom", shot.zoom, {1, maxZoom, 0.01, 1, "×"}));
    rows.push_back(
        RowMaker::number("focus", "Focus", shot.focus.value_or(0.5) * percent, {0, percent, 1, 50, "%"}));
    if (upright && (shot.playbook || shot.layout == Shot::Layout::split)) {
        rows.push_back(RowMaker::number("split", "Split", shot.split.value_or(framing.split) * percent,
                                        {minSplit, maxSplit, 1, framing.split * percent, "%"}));
        rows.back().changed = shot.split.has_value();
    }
    rows.push_back(RowMaker::oneOf<ShotMove>("move", "Move", shot.move, "None"));
    if (shot.move) rows.push_back(RowMaker::ease(shot.ease));
    rows.push_back(RowMaker::oneOf<Transition>("transition", "Transition", shot.transition, "None"));
    const auto* book = shot.playbook ? shelf.book(*shot.playbook, shot.version) : nullptr;
    if (book)
        for (auto& row : ParameterRows::of(*book, shot.values)) rows.push_back(std::move(row));
    if (!shot.playbook) return rows;
    if (const auto newer = shelf.newer(*shot.playbook, shot.version.value_or(1)))
        rows.insert(rows.begin() + (upright ? 1 : 0), RowMaker::update(*newer, *shot.playbook));
    return rows;
}

void set(Shot& shot, BookShelf& shelf, const std::string& row, const QVariant& value) {
    if (row == "layout") return setLayout(shot, value.toString().toStdString());
    if (row == "version" && shot.playbook) shot.version = value.toLongLong();
    if (row == "zoom") shot.zoom = RowMaker::numberOf(value).value_or(1);
    if (row == "focus") shot.focus = share(value);
    if (row == "split") shot.split = share(value);
    if (row == "move") setMove(shot, RowMaker::rawAt<ShotMove>(value));
    if (row == "ease") shot.ease = RowMaker::easeAt(value);
    if (row == "transition") shot.transition = RowMaker::rawAt<Transition>(value);
    const auto* book =
        ParameterRows::isOne(row) && shot.playbook ? shelf.book(*shot.playbook, shot.version) : nullptr;
    if (book) ParameterRows::set(shot.values, *book, row, value);
}

}
