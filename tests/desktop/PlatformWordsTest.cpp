#include "app/desktop/services/PlatformWords.h"
#include "core/intake/transcription/Whisper.h"
#include "core/playbooks/PlaybookGuide.h"
#include "core/render/export/ExportError.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(PlatformWords, callThingsAsThisSystemDoes) {
    EXPECT_EQ(PlatformWords::shown(std::string(ExportError::cannotStart().what())),
              "This computer could not start the export.");
    for (const auto& words : {std::string(PlaybookGuide::text()),
                              Whisper::missing("no-such-tool").value_or(""), std::string(Whisper::name)}) {
        const auto shown = PlatformWords::shown(words);
        for (const auto* word : {"Mac", "brew", "Terminal:"})
            EXPECT_FALSE(shown.contains(word)) << shown.toStdString();
    }
    EXPECT_EQ(PlatformWords::shown(QString("Macaroni")), "Macaroni");
}
