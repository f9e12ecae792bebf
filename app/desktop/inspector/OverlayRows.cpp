#include "app/desktop/inspector/OverlayRows.h"

#include "app/desktop/inspector/BookShelf.h"
#include "app/desktop/inspector/ParameterRows.h"
#include "app/desktop/inspector/RowMaker.h"
#include "core/model/Entrance.h"

#include <algorithm>

namespace murbo::OverlayRows {
namespace {

constexpr double percent = 100;
constexpr double shortest = 0.2; // seconds
constexpr double standardLength = 3;

struct PlacementField {
    const char* id;
    const char* name;
    std::optional<double> Placement::*member;
    double scale; ///< from what is kept to what is shown
    double from;
    double to;
    double step;
    double standard;
    const char* unit;
};
constexpr PlacementField placementFields[] = {
    {"x", "Across", &Placement::x, percent, -50, 150, 0.5, 50, "%"},
    {"y", "Down", &Placement::y, percent, -50, 150, 0.5, 50, "%"},
    {"scale", "Scale", &Placement::scale, percent, 5, 400, 1, 100, "%"},
    {"rotation", "Rotation", &Placement::rotation, 1, -180, 180, 1, 0, "°"},
};

void addPlacement(InspectorRowList& rows, const std::optional<Placement>& placement,
                  const std::string& prefix, const char* before) {
    const auto held = placement.value_or(Placement());
    for (const auto& field : placementFields) {
        const auto& kept = held.*field.member;
        const auto shown = kept ? std::optional(*kept * field.scale) : std::nullopt;
        rows.push_back(RowMaker::number(prefix + field.id, QString(before) + field.name, shown,
                                        {field.from, field.to, field.step, field.standard, field.unit}));
    }
}

/// A placement that says nothing is none.
void setPlacement(std::optional<Placement>& placement, std::string_view id, const QVariant& value) {
    auto held = placement.value_or(Placement());
    for (const auto& field : placementFields)
        if (id == field.id) {
            const auto number = RowMaker::numberOf(value);
            held.*field.member = number ? std::optional(*number / field.scale) : std::nullopt;
        }
    placement = held == Placement() ? std::nullopt : std::optional(held);
}

void setMove(Move& move, const std::string& row, const QVariant& value) {
    if (row == "ease") move.ease = RowMaker::easeAt(value);
    if (row == "enter") move.enter = RowMaker::rawAt<Entrance>(value);
    if (row == "exit") move.exit = RowMaker::rawAt<Entrance>(value);
    if (row == "moves") {
        move.to = value.toBool() ? std::optional(move.from.value_or(Placement{.x = 0.5})) : std::nullopt;
        if (!move.to) move.ease.reset(); // nothing shows it then
    }
    if (row.starts_with("from.")) setPlacement(move.from, row.substr(5), value);
    if (row.starts_with("to.") && move.to) {
        setPlacement(move.to, row.substr(3), value);
        if (!move.to) move.to.emplace(); // it still moves: back to the middle
    }
}

void addMotion(InspectorRowList& rows, const Move& move) {
    addPlacement(rows, move.from, "from.", "");
    rows.push_back(RowMaker::toggle("moves", "Moves to another place", move.to.has_value()));
    if (move.to) {
        addPlacement(rows, move.to, "to.", "To ");
        rows.push_back(RowMaker::ease(move.ease));
    }
    rows.push_back(RowMaker::oneOf<Entrance>("enter", "Enter", move.enter, "As the playbook says"));
    rows.push_back(RowMaker::oneOf<Entrance>("exit", "Exit", move.exit, "As the playbook says"));
}

}

InspectorRowList of(const Overlay& overlay, BookShelf& shelf) {
    InspectorRowList rows;
    const auto* book = shelf.book(overlay.playbook, overlay.version);
    rows.push_back(RowMaker::special("picture", InspectorRow::Control::picture));
    if (const auto newer = shelf.newer(overlay.playbook, overlay.version))
        rows.push_back(RowMaker::update(*newer, overlay.playbook));
    rows.push_back(RowMaker::time("length", "Length", overlay.length));
    rows.push_back(RowMaker::toggle("stretch", "Stretch to the length", overlay.stretch.value_or(false)));
    rows.push_back(RowMaker::toggle("mute", "Silence what is below", overlay.mute.value_or(false)));
    if (book)
        for (auto& row : ParameterRows::of(*book, overlay.values)) rows.push_back(std::move(row));
    rows.push_back(RowMaker::section("Placement"));
    addMotion(rows, overlay.move.value_or(Move()));
    return rows;
}

void set(Overlay& overlay, BookShelf& shelf, const std::string& row, const QVariant& value) {
    if (ParameterRows::isOne(row)) {
        const auto* book = shelf.book(overlay.playbook, overlay.version);
        if (book) ParameterRows::set(overlay.values, *book, row, value);
        return;
    }
    if (row == "length") {
        const auto* book = shelf.book(overlay.playbook, overlay.version);
        const double natural = book ? book->playbook.length.value_or(standardLength) : standardLength;
        overlay.length = std::max(RowMaker::numberOf(value).value_or(natural), shortest);
    } else if (row == "stretch") {
        overlay.stretch = RowMaker::truthOf(value);
    } else if (row == "mute") {
        overlay.mute = RowMaker::truthOf(value);
    } else {
        auto move = overlay.move.value_or(Move());
        setMove(move, row, value);
        overlay.move = move == Move() ? std::nullopt : std::optional(move);
    }
}

}
