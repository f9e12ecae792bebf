#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// The moments that a streamer marked while recording, from the CSV file that lies beside the recording.
namespace Markers {

/// The marker times in seconds, in the text's order, unchecked against any recording. UTF-8, with or without
/// a byte order mark.
///
/// A line is a marker by what stands before its first comma: seconds, m:ss or h:mm:ss. All other lines are
/// passed over. A text in which no line is a marker by that rule is read as the table of another program
/// (MarkerTable.h); `recording` is the recording's file name, for tables that hold several recordings.
std::vector<double> parse(std::string_view text, std::string_view recording = {});

/// The lines of a text, empty ones left out. All of Unicode's line breaks end a line.
std::vector<std::string_view> lines(std::string_view text);

/// The markers file beside a recording: the CSV file with the longest name that the recording's name begins
/// with, else one that shares its first ten characters (the date). Names are looked at in byte order.
std::optional<std::filesystem::path> find(const std::filesystem::path& recording);

/// A markers file's whole text as UTF-8; UTF-16 with a byte order mark is converted. Nothing where the file
/// can't be read, is larger than 4 MiB, or is in neither form.
std::optional<std::string> text(const std::filesystem::path& file);

}

}
