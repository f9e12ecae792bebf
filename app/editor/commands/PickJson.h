#pragma once

#include "app/editor/Pick.h"

#include <string>
#include <vector>

namespace murbo {

class JsonWriter;

/// Picks as scripts read and write them: ["cut", "<id>"], ["caption", "<line id>", piece].
namespace PickJson {

void write(JsonWriter& writer, const Pick& pick);
void write(JsonWriter& writer, const std::vector<Pick>& picks);
std::string of(const std::vector<Pick>& picks);

}

}
