#pragma once

#include "app/editor/Pick.h"

#include <QString>

namespace murbo {

class BookShelf;
class Editor;
struct Clip;
struct Source;
struct Video;

/// What is inspected in words: of which kind it is, how it is called, and a note beside that.
struct InspectedWords {
    QString kind;
    QString title;
    QString note;

    static InspectedWords of(const Pick& pick, const Editor& editor, BookShelf& shelf);
    static InspectedWords ofSeveral(std::size_t count, const char* what);
    static InspectedWords ofClip(const Clip& clip);
    static InspectedWords ofSource(const Source& source);
    /// With no video, that there is none.
    static InspectedWords ofVideo(const Video* video);
};

}
