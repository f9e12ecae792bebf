#include "app/editor/commands/PickJson.h"

#include "platform/base/JsonWriter.h"
#include "platform/base/RawText.h"

namespace murbo::PickJson {

void write(JsonWriter& writer, const Pick& pick) {
    writer.beginArray();
    writer.text(rawText(pick.kind));
    writer.text(pick.id.text());
    if (pick.piece) writer.integer(*pick.piece);
    writer.endArray();
}

void write(JsonWriter& writer, const std::vector<Pick>& picks) {
    writer.beginArray();
    for (const auto& pick : picks) write(writer, pick);
    writer.endArray();
}

std::string of(const std::vector<Pick>& picks) {
    JsonWriter writer(JsonWriter::Layout::compact);
    write(writer, picks);
    return writer.finish();
}

}
