#pragma once

#include "core/model/Project.h"
#include "platform/base/Codec.h"

/// The codec of the project's records, compiled once: reading and writing them takes seconds to compile.
/// Whoever reads or writes records of the model includes this header.
namespace murbo::Codec {

extern template Clip read<Clip>(const JsonValue&);
extern template Source read<Source>(const JsonValue&);
extern template Idea read<Idea>(const JsonValue&);
extern template Cut read<Cut>(const JsonValue&);
extern template CaptionStyle read<CaptionStyle>(const JsonValue&);
extern template Look read<Look>(const JsonValue&);
extern template Video read<Video>(const JsonValue&);
extern template Transcript read<Transcript>(const JsonValue&);
extern template Project read<Project>(const JsonValue&);

extern template void write<Clip>(JsonWriter&, const Clip&);
extern template void write<Source>(JsonWriter&, const Source&);
extern template void write<Idea>(JsonWriter&, const Idea&);
extern template void write<Cut>(JsonWriter&, const Cut&);
extern template void write<CaptionStyle>(JsonWriter&, const CaptionStyle&);
extern template void write<Look>(JsonWriter&, const Look&);
extern template void write<Video>(JsonWriter&, const Video&);
extern template void write<Transcript>(JsonWriter&, const Transcript&);
extern template void write<Project>(JsonWriter&, const Project&);

}
