#pragma once

#include <string_view>
#include <vector>

namespace murbo {

/// Marker tables as other programs write them: separated by commas, tabs or semicolons, quoted or not, with
/// the time in any column that the first line names.
namespace MarkerTable {

/// The marker times in seconds, in the table's order. Times with frames (h:mm:ss:ff, h:mm:ss;ff) are taken to
/// the whole second, for a table doesn't give its frame rate; that is only done in a column known as times.
/// Where the table names the recording of each row, only the rows of `recording` count; a table of one single
/// recording counts whole, for recordings get renamed.
std::vector<double> parse(const std::vector<std::string_view>& lines, std::string_view recording);

}

}
