#include "app/desktop/inspector/CutRows.h"

#include "app/desktop/inspector/BookShelf.h"
#include "app/desktop/inspector/ParameterRows.h"
#include "app/desktop/inspector/RowMaker.h"

namespace murbo::CutRows {

InspectorRowList of(const Cut& cut, const Source* source, const QString& facts, BookShelf& shelf) {
    InspectorRowList rows;
    if (!cut.generator) {
        rows.push_back(RowMaker::time("in", "In", cut.start));
        rows.push_back(RowMaker::time("out", "Out", cut.end));
    }
    rows.push_back(RowMaker::time("length", "Length", cut.length()));
    rows.push_back(
        RowMaker::text("role", "Role", RowMaker::said(cut.role.value_or("")), cut.role.has_value()));
    rows.push_back(RowMaker::toggle("mute", "Mute", cut.muted.value_or(false)));
    const auto* book = cut.generator ? shelf.book(cut.generator->playbook, cut.generator->version) : nullptr;
    if (cut.generator)
        if (const auto newer = shelf.newer(cut.generator->playbook, cut.generator->version))
            rows.push_back(RowMaker::update(*newer, cut.generator->playbook));
    if (book)
        for (auto& row : ParameterRows::of(*book, cut.generator->values)) rows.push_back(std::move(row));
    if (!source) return rows;
    rows.push_back(RowMaker::button("takeOutQuiet", "Take Out Quiet Stretches"));
    rows.push_back(RowMaker::section("Footage"));
    rows.push_back(RowMaker::words("file", "File", RowMaker::said(source->name())));
    rows.push_back(RowMaker::words("facts", "Facts", facts));
    rows.push_back(RowMaker::button("framing", "Framing…"));
    return rows;
}

void set(Cut& cut, BookShelf& shelf, const std::string& row, const QVariant& value) {
    if (row == "role") cut.role = RowMaker::textOf(value);
    if (row == "mute") cut.muted = RowMaker::truthOf(value);
    if (row == "version" && cut.generator) cut.generator->version = value.toLongLong();
    if (!ParameterRows::isOne(row) || !cut.generator) return;
    if (const auto* book = shelf.book(cut.generator->playbook, cut.generator->version))
        ParameterRows::set(cut.generator->values, *book, row, value);
}

bool isEnd(const std::string& row) {
    return row == "in" || row == "out" || row == "length";
}

}
