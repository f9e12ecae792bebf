#include "app/desktop/services/PlatformWords.h"

#include <string>

namespace murbo::PlatformWords {
namespace {

struct Wording {
    const char* from;
    const char* to;
};

constexpr Wording wordings[] = {
    {"In Terminal: brew install whisper-cpp",
     "Install whisper.cpp so that the command whisper-cli is on the PATH."},
    {"In Terminal: ", "In a terminal: "},
    {"This Mac", "This computer"},
    {"this Mac", "this computer"},
};

}

QString shown(const QString& text) {
    auto words = text;
    for (const auto& [from, to] : wordings) words.replace(QString::fromUtf8(from), QString::fromUtf8(to));
    return words;
}

QString shown(const std::string& text) {
    return shown(QString::fromStdString(text));
}

QString shown(const char* text) {
    return shown(QString::fromUtf8(text));
}

}
