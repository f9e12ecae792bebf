#pragma once

#include "core/model/Project.h"

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// All that was said or noted in a project, by tag and by clip: models name footage by tags, the project
/// stores times. It holds for the project as it stood. Any thread may read one that nobody changes.
class Said {
public:
    /// One line or note that lies in a clip.
    struct Piece {
        UUID id; ///< of the line or note
        std::string tag;
        UUID clip;
        UUID source;
        double start = 0; ///< seconds on the source
        double end = 0;
        std::string_view text; ///< lives as long as the `Said`
        bool note = false;     ///< something seen rather than said
        bool gone = false;     ///< a line that no longer counts as said
    };
    using Pieces = std::vector<const Piece*>;

    explicit Said(const Project& project);
    Said(const Said&) = delete;

    /// Takes the words of lines and notes as they are now, where nothing but words is other than it was: far
    /// quicker than making it anew. False, and nothing changed, where anything lies elsewhere; sources and
    /// clips are taken to be the same ones.
    bool reword(const std::map<UUID, Transcript>& now);

    /// The piece that a model names by its tag, in any spelling that `tag` understands; null where the value
    /// is no text, no such piece is there, or it is gone.
    const Piece* piece(const nlohmann::json& value) const;
    /// The piece of that tag, gone or not; null where there is none.
    const Piece* tagged(std::string_view tag) const;
    /// The piece of that line or note; null where it lies in no clip.
    const Piece* of(const UUID& id) const;
    /// The pieces of a clip by their start.
    const Pieces& inClip(const UUID& clip) const;
    /// The pieces of a source by their start.
    const Pieces& on(const UUID& source) const;
    /// All pieces, source by source.
    const std::vector<Piece>& all() const { return pieces; }

    struct Near {
        const Piece* piece = nullptr; ///< null where nothing is said on the source
        double distance = 0;          ///< seconds between the moment and the piece; 0 within it
    };
    /// The piece that a second of a source lies in, or else the nearest one; of several the one that began
    /// last.
    Near nearest(double second, const UUID& source) const;

    /// The pieces, not gone, whose text holds these words in upper or lower case.
    Pieces holding(std::string_view words) const;

    /// A tag of a line or note in its standard form: "C03.07" for "c3.7". Nothing for what is no such tag.
    static std::optional<std::string> tag(std::string_view text);

    /// The cuts that a model asks for: each object's lines "from" and "to" in one clip, of those given where
    /// some are given. What doesn't hold up is left out; the order stays.
    std::vector<Cut> cuts(const nlohmann::json& value, const std::set<UUID>* clips = nullptr) const;

    /// The pieces that a cut plays, gone ones left out, by their start. A trim that just touches a line
    /// doesn't count it.
    Pieces played(const Cut& cut) const;

    struct Ends {
        const Piece* first;
        const Piece* last;
    };
    std::optional<Ends> ends(const Cut& cut) const;

    /// The cuts with the trims that their lines had: one that plays from the same line to the same line as an
    /// old cut takes its times, its mute, and where it has no role of its own its role.
    std::vector<Cut> keepingTrims(std::vector<Cut> cuts, const List<Cut>& old) const;

    /// The cuts with the generated ones of the old list put back: before the footage that followed them, the
    /// ones that opened the video in their place, at the end where that footage is gone. Models can't name
    /// them.
    std::vector<Cut> keepingGenerators(std::vector<Cut> cuts, const List<Cut>& old) const;

private:
    struct OnSource {
        Pieces pieces;
        double longest = 0; ///< seconds
    };

    void add(const UUID& source, const Project& project);
    void index();
    std::optional<Cut> cut(const nlohmann::json& value, const std::set<UUID>* clips) const;
    const std::string& firstTag(const Cut& cut) const;

    struct Kept {
        UUID source;
        Transcript transcript; ///< what the texts lie in
        std::size_t first = 0; ///< its first piece
        std::size_t end = 0;   ///< the one after its last
    };

    void reword(Kept& kept, const Transcript& now);

    std::vector<Kept> transcripts;
    std::vector<Piece> pieces;
    std::unordered_map<std::string_view, const Piece*> byTag;
    std::unordered_map<UUID, const Piece*> byId;
    std::unordered_map<UUID, Pieces> byClip;
    std::unordered_map<UUID, OnSource> bySource;
    mutable std::once_flag lowered;
    mutable std::vector<std::string> low; ///< the texts in lower case, made when first looked through
    std::vector<std::string> otherForms;  ///< tags whose standard form differs from the printed one
};

}
