#include "core/model/Settings.h"

#include "platform/base/Text.h"
#include "platform/store/SettingsStore.h"

#include <algorithm>

#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace murbo {
namespace {

std::string textOr(const char* key, const char* otherwise) {
    const auto kept = Text::trimmedOfBlanks(SettingsStore::standard().text(key).value_or(""));
    return kept.empty() ? otherwise : kept;
}

double positiveOr(const char* key, double otherwise) {
    const auto kept = SettingsStore::standard().number(key);
    return kept && *kept > 0 ? *kept : otherwise;
}

bool looksLikeACode(const std::string& code) {
    return !code.empty() && code.size() <= 40 && std::all_of(code.begin(), code.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '-' || c == '_';
    });
}

}

std::string Settings::model(ModelClass wanted) {
    return wanted == ModelClass::judgement ? textOr("judgementModel", "anthropic/claude-sonnet-5.5")
                                           : textOr("lightModel", "anthropic/claude-haiku-5.5");
}

std::string Settings::transcriptionModel() {
    return textOr("transcriptionModel", standardTranscriptionModel);
}

std::string Settings::language() {
    return textOr("language", "th");
}

std::string Settings::languageName(const std::string& code) {
    if (!looksLikeACode(code)) return code;
    icu::UnicodeString name;
    icu::Locale(code.c_str()).getDisplayName(icu::Locale::getEnglish(), name);
    std::string text;
    name.toUTF8String(text);
    return text.empty() ? code : text;
}

std::string Settings::captionFonts() {
    return SettingsStore::standard().text("captionFonts").value_or("");
}

double Settings::punchZoom() {
    const auto kept = positiveOr("punchZoom", 0);
    return kept > 1 ? kept : 1.3;
}

double Settings::snapReach() {
    return positiveOr("snapReach", 8);
}

double Settings::quietLeast() {
    return positiveOr("quietLeast", 2);
}

}
