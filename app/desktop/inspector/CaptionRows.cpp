#include "app/desktop/inspector/CaptionRows.h"

#include "app/desktop/inspector/RowMaker.h"
#include "app/editor/commands/CaptionCommands.h"

namespace murbo::CaptionRows {
namespace {

template <class Held>
auto* pieceAt(Held& pieces, const std::optional<std::int64_t>& at) {
    const bool there = pieces && at && *at >= 0 && *at < std::ssize(*pieces);
    return there ? &(*pieces)[static_cast<std::size_t>(*at)] : nullptr;
}

template <class Held>
void setOn(Held& held, const std::string& row, const QVariant& value) {
    if (row == "big") held.big = RowMaker::truthOf(value);
    if (row == "hidden") held.hidden = RowMaker::truthOf(value);
}

}

InspectorRowList of(const QString& said, bool big, bool hidden) {
    return {RowMaker::words("said", "Words", said), RowMaker::toggle("big", "Big", big),
            RowMaker::toggle("hidden", "Hidden", hidden)};
}

void set(Look& look, const UUID& line, const std::optional<std::int64_t>& piece, const std::string& row,
         const QVariant& value) {
    CaptionCommands::change(look, line, [&](CaptionLine& entry) {
        if (auto* part = pieceAt(entry.pieces, piece))
            setOn(*part, row, value);
        else
            setOn(entry, row, value);
    });
}

}
