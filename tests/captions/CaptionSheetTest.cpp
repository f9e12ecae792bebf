#include "core/model/ModelCodec.h"
#include "core/render/captions/CaptionPicture.h"
#include "platform/base/Codec.h"
#include "platform/text/Fonts.h"
#include "tests/Approved.h"
#include "tests/Sheet.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;

TEST(CaptionSheet, captionsAreDrawnAsApproved) {
    if (!Fonts::installed("Nunito")) GTEST_SKIP() << "The fonts that come with the program are not here.";
    Sheet sheet("captions/approved/captions.png", 6);
    for (const auto& line : linesOf("captions/approved/captions.txt")) {
        const auto given = nlohmann::json::parse(line);
        CaptionPicture::Request asked;
        asked.text = given["text"];
        asked.style = Codec::decode<CaptionStyle>(given.value("style", nlohmann::json::object()).dump());
        asked.fonts = given.value("fonts", "");
        asked.big = given.value("big", false);
        if (given.contains("reveal")) asked.reveal = given["reveal"];
        asked.stress = given.value("stress", asked.stress);
        asked.scale = given.value("scale", 0.2);
        asked.width = given.value("width", CaptionPicture::widestShare * 1080 * asked.scale);
        const auto picture = CaptionPicture::draw(asked).value_or(Image());
        const Rect extent = picture.extent();
        sheet.add(line, picture, {extent.width + 1, extent.height + 1}, 1);
    }
    sheet.expectApproved();
}
