#include "platform/text/FontSet.h"

#include <cstdlib>
#include <filesystem>
#include <limits>

#include <fontconfig/fontconfig.h>

#ifdef __SANITIZE_ADDRESS__
// Fontconfig writes its pointers as offsets, so that the leak checker takes what is in use for lost.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
#endif

namespace murbo {

namespace {

namespace files = std::filesystem;

std::string lower(std::string_view text) {
    std::string result(text);
    for (char& letter : result)
        if (letter >= 'A' && letter <= 'Z') letter += 'a' - 'A';
    return result;
}

std::string escaped(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        if (letter == '&')
            result += "&amp;";
        else if (letter == '<')
            result += "&lt;";
        else
            result += letter;
    }
    return result;
}

std::string elements(const char* name, FcStrList* list) {
    std::string xml;
    while (const FcChar8* text = FcStrListNext(list))
        xml += std::string("<") + name + ">" + escaped(reinterpret_cast<const char*>(text)) + "</" + name +
               ">\n";
    FcStrListDone(list);
    return xml;
}

// Without the first rules a private configuration draws colour emoji at the one size that their file holds.
// The alias is what Pango asks for by itself where a text shows emoji.
constexpr const char* scaledBitmaps = R"(
<match target="font">
  <test name="outline" compare="eq"><bool>false</bool></test>
  <edit name="pixelsizefixupfactor" mode="assign">
    <divide><name target="pattern">pixelsize</name><name target="font">pixelsize</name></divide>
  </edit>
</match>
<match target="font">
  <test name="outline" compare="eq"><bool>false</bool></test>
  <test name="pixelsizefixupfactor" compare="not_eq"><double>1.0</double></test>
  <edit name="matrix" mode="assign">
    <times>
      <name>matrix</name>
      <matrix>
        <name>pixelsizefixupfactor</name><double>0</double>
        <double>0</double><name>pixelsizefixupfactor</name>
      </matrix>
    </times>
  </edit>
  <edit name="size" mode="assign">
    <divide><name>size</name><name>pixelsizefixupfactor</name></divide>
  </edit>
</match>
<alias binding="same">
  <family>emoji</family>
  <prefer>
    <family>Noto Color Emoji</family><family>Twitter Color Emoji</family><family>Twemoji</family>
    <family>JoyPixels</family><family>EmojiOne Color</family><family>OpenMoji</family>
    <family>Noto Emoji</family><family>Symbola</family><family>DejaVu Sans</family>
  </prefer>
</alias>
)";

/// The folders and caches of the system, none of its rules.
std::string configurationText() {
    FcConfig* system = FcInitLoadConfig();
    std::string xml = "<fontconfig>\n";
    if (system) {
        xml += elements("dir", FcConfigGetFontDirs(system));
        xml += elements("cachedir", FcConfigGetCacheDirs(system));
        FcConfigDestroy(system);
    }
    return xml + scaledBitmaps + "</fontconfig>\n";
}

/// Where the rounded faces lie; empty where nowhere.
files::path ownFolder() {
    std::vector<files::path> places;
    if (const char* named = std::getenv("MURBO_FONTS"); named && *named) places.emplace_back(named);
    std::error_code error;
    const files::path program = files::read_symlink("/proc/self/exe", error).parent_path();
    places.push_back(program / "fonts");
    places.push_back(program.parent_path() / "share" / "murbo" / "fonts");
    for (const auto& place : places)
        if (files::is_directory(place, error)) return place;
    return {};
}

std::vector<std::string> fontFiles(const files::path& folder) {
    std::vector<std::string> found;
    std::error_code error;
    for (files::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string extension = lower(entry->path().extension().string());
        if (extension == ".ttf" || extension == ".otf" || extension == ".ttc")
            found.push_back(entry->path().string());
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::string text(const FcPattern* pattern, const char* object, int index = 0) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, index, &value) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(value);
}

/// Inside their files the families go by "Nunito ExtraLight" at a weight of 900, or by "Rounded Mplus 1c
/// Bold": under one name for all weights, the right weight is found.
void rename(FcPattern* pattern) {
    static constexpr std::array<std::array<const char*, 3>, 3> names{{
        {"Nunito", FontSet::rounded, "Nunito"},
        {"Mitr", FontSet::roundedThai, "Mitr"},
        {"Rounded Mplus 1c", FontSet::roundedJapanese, "M PLUS Rounded 1c"},
    }};
    const std::string family = text(pattern, FC_FAMILY);
    for (const auto& [begin, own, plain] : names) {
        if (!family.starts_with(begin)) continue;
        FcPatternDel(pattern, FC_FAMILY);
        FcPatternDel(pattern, FC_FAMILYLANG);
        FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(own));
        FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(plain));
        return;
    }
}

/// How far a face is from an upright one of a weight; a variable face is every weight.
double distance(const FcPattern* face, int weight) {
    int slant = FC_SLANT_ROMAN;
    double own = 0;
    FcPatternGetInteger(face, FC_SLANT, 0, &slant);
    const bool fixed = FcPatternGetDouble(face, FC_WEIGHT, 0, &own) == FcResultMatch;
    return (fixed ? std::abs(FcWeightToOpenTypeDouble(own) - weight) : 0) +
           (slant == FC_SLANT_ROMAN ? 0 : 10'000);
}

}

const FcCharSet* FontSet::Family::letters(int weight) const {
    const auto nearer = [&](const FcPattern* a, const FcPattern* b) {
        return distance(a, weight) < distance(b, weight);
    };
    FcCharSet* found = nullptr;
    FcPatternGetCharSet(*std::min_element(faces.begin(), faces.end(), nearer), FC_CHARSET, 0, &found);
    return found;
}

const FontSet& FontSet::shared() {
    // Never destroyed: threads may still draw while the program ends.
    static const FontSet& set = *new FontSet();
    return set;
}

FontSet::FontSet() : configuration(FcConfigCreate()) {
    const std::string xml = configurationText();
    FcConfigParseAndLoadFromMemory(configuration, reinterpret_cast<const FcChar8*>(xml.c_str()), FcTrue);
    FcConfigBuildFonts(configuration);
    for (const auto& file : fontFiles(ownFolder())) addOwn(file);
    index(FcSetApplication);
    index(FcSetSystem);
}

void FontSet::addOwn(const std::string& file) {
    const FcFontSet* fonts = FcConfigGetFonts(configuration, FcSetApplication);
    const int before = fonts ? fonts->nfont : 0;
    FcConfigAppFontAddFile(configuration, reinterpret_cast<const FcChar8*>(file.c_str()));
    fonts = FcConfigGetFonts(configuration, FcSetApplication);
    for (int font = before; fonts && font < fonts->nfont; ++font) rename(fonts->fonts[font]);
}

void FontSet::index(int set) {
    const FcFontSet* fonts = FcConfigGetFonts(configuration, FcSetName(set));
    for (int font = 0; fonts && font < fonts->nfont; ++font) {
        FcPattern* face = fonts->fonts[font];
        FcBool colour = FcFalse;
        FcPatternGetBool(face, FC_COLOR, 0, &colour);
        for (int name = 0; !text(face, FC_FAMILY, name).empty(); ++name) {
            Family& family = byName[lower(text(face, FC_FAMILY, name))];
            if (family.name.empty()) family.name = text(face, FC_FAMILY, name);
            family.faces.push_back(face);
            family.colour = family.colour || colour;
        }
    }
}

const FontSet::Family* FontSet::find(std::string_view name) const {
    const auto found = byName.find(lower(name));
    return found == byName.end() ? nullptr : &found->second;
}

}
