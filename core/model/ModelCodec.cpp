#include "core/model/ModelCodec.h"

namespace murbo::Codec {

template Clip read<Clip>(const JsonValue&);
template Source read<Source>(const JsonValue&);
template Idea read<Idea>(const JsonValue&);
template Cut read<Cut>(const JsonValue&);
template CaptionStyle read<CaptionStyle>(const JsonValue&);
template Look read<Look>(const JsonValue&);
template Video read<Video>(const JsonValue&);
template Transcript read<Transcript>(const JsonValue&);
template Project read<Project>(const JsonValue&);

template void write<Clip>(JsonWriter&, const Clip&);
template void write<Source>(JsonWriter&, const Source&);
template void write<Idea>(JsonWriter&, const Idea&);
template void write<Cut>(JsonWriter&, const Cut&);
template void write<CaptionStyle>(JsonWriter&, const CaptionStyle&);
template void write<Look>(JsonWriter&, const Look&);
template void write<Video>(JsonWriter&, const Video&);
template void write<Transcript>(JsonWriter&, const Transcript&);
template void write<Project>(JsonWriter&, const Project&);

}
