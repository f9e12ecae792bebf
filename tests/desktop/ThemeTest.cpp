#include "app/desktop/Desktop.h"

#include <QColor>
#include <QQmlComponent>
#include <QQmlEngine>
#include <cmath>
#include <memory>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// As WCAG 2.1 has it: 1 to 21.
double contrast(const QColor& one, const QColor& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

class Theme : public testing::Test {
protected:
    Theme() {
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nimport \"qrc:/murbo/qml\"\nQtObject { property var theme: Theme }",
                          QUrl());
        holder.reset(component.create());
        if (holder) theme = holder->property("theme").value<QObject*>();
    }

    void SetUp() override { ASSERT_TRUE(theme); }
    QColor colour(const char* name) const { return theme->property(name).value<QColor>(); }
    QColor block(const QString& name) const {
        return QColor(theme->property("timeline").toMap().value(name).toString());
    }

    QQmlEngine engine;
    std::unique_ptr<QObject> holder;
    QObject* theme = nullptr;
};

}

TEST_F(Theme, textCanBeReadOnEveryGround) {
    for (const auto* ground : {"canvas", "panel", "raised", "hover"}) {
        for (const auto* text : {"text", "text2", "text3", "notice", "bad", "good"})
            EXPECT_GE(contrast(colour(text), colour(ground)), 4.5) << text << " on " << ground;
        for (const auto* edge : {"fieldEdge", "accent", "picked", "playhead"})
            EXPECT_GE(contrast(colour(edge), colour(ground)), 3) << edge << " on " << ground;
    }
    EXPECT_GE(contrast(colour("text"), colour("pressed")), 4.5);
    EXPECT_GE(contrast(colour("text2"), colour("pressed")), 4.5);
    EXPECT_GE(contrast(colour("accentText"), colour("accent")), 4.5);
    EXPECT_GE(contrast(colour("text"), colour("badCard")), 4.5);
}

TEST_F(Theme, blocksStandOutAndTheirNamesCanBeRead) {
    for (const QString block : {"split", "content", "face", "layer", "cut", "caption", "bigCaption",
                                "hiddenCaption", "overlay", "sound", "music", "muted"}) {
        EXPECT_GE(contrast(this->block(block + ".label"), this->block(block + ".fill")), 4.5)
            << block.toStdString();
        EXPECT_GE(contrast(this->block(block + ".edge"), this->block("row")), 3) << block.toStdString();
    }
    EXPECT_GE(contrast(block("wave"), block("cut.fill")), 3);
    EXPECT_GE(contrast(block("picked"), block("cut.fill")), 3);
    EXPECT_GE(contrast(block("time"), block("ruler")), 4.5);
}

TEST_F(Theme, theTranscriptCanBeReadWhateverLiesBeneathIt) {
    const auto grounds = theme->property("transcript").toMap();
    const auto ground = [&](const char* name) { return QColor(grounds.value(name).toString()); };
    for (const auto* name : {"marked", "current", "found"}) {
        EXPECT_GE(contrast(colour("text"), ground(name)), 4.5) << name;
        EXPECT_GE(contrast(ground("tag"), ground(name)), 4.5) << name;
    }
    EXPECT_GE(contrast(colour("text"), ground("spoken")), 4.5);
    EXPECT_GE(contrast(colour("text"), colour("selection")), 4.5);
    EXPECT_GE(contrast(ground("used"), colour("panel")), 3);
}
