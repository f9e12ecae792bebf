#pragma once

#include "core/model/Framing.h"
#include "platform/base/Data.h"
#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// One footage file.
struct Source {
    enum class Kind { stream, file };

    /// The markers of a stream recording, kept whole so that their file is never needed again.
    struct Stream {
        std::string markersName; ///< last path component of the markers file
        std::string markers;     ///< its whole text

        bool operator==(const Stream&) const = default;
        static constexpr auto fields(auto visit) {
            return visit(field("markersName", &Stream::markersName), field("markers", &Stream::markers));
        }
    };

    UUID id = UUID::make();
    UUID group;
    std::string path;             ///< absolute
    std::optional<Data> bookmark; ///< another system's file reference, kept as found
    Kind kind = Kind::file;
    double length = 0;               ///< seconds
    std::optional<std::string> note; ///< what the recording is, in the user's words
    std::optional<Stream> stream;
    std::optional<Framing> framing;

    /// The last path component.
    std::string name() const;

    bool operator==(const Source&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Source::id), field("group", &Source::group), field("path", &Source::path),
                     field("bookmark", &Source::bookmark), field("kind", &Source::kind),
                     field("length", &Source::length), field("note", &Source::note),
                     field("stream", &Source::stream), field("framing", &Source::framing));
    }
};
constexpr auto rawTexts(Source::Kind) {
    return std::array<std::string_view, 2>{"stream", "file"};
}

}
