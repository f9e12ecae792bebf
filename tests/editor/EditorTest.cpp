#include "app/editor/Editor.h"
#include "app/editor/commands/FootageCommands.h"
#include "core/ai/Said.h"
#include "tests/editor/TwoCuts.h"

#include <QMetaMethod>

using namespace murbo;

namespace {

void rename(Project& project, const std::string& name) {
    project.groups.edit().front().name = name;
}

}

TEST(Editor, notifiesOncePerRealChange) {
    Lines lines;
    auto& editor = lines.editor();
    int count = 0;
    for (const auto signal :
         {&EditorFields::toolChanged, &EditorFields::pickedChanged, &EditorFields::rangeChanged})
        QObject::connect(&editor, signal, [&] { ++count; });
    for (int time = 0; time < 2; ++time) {
        editor.setTool(EditingTool::blade);
        editor.setRange(Stretch{1, 2});
        editor.setPicked(std::nullopt);
    }
    EXPECT_EQ(count, 2);
    const auto& meta = EditorFields::staticMetaObject;
    for (int at = meta.propertyOffset(); at < meta.propertyCount(); ++at)
        EXPECT_TRUE(meta.property(at).hasNotifySignal()) << meta.property(at).name();
}

TEST(Editor, aRefusalBeepsAndAnotherMonitoringIsMixedAtOnce) {
    TwoCuts lines;
    int beeps = 0;
    QObject::connect(&lines.editor(), &Editor::beeped, [&] { ++beeps; });
    lines.editor().refuse("No");
    EXPECT_EQ(lines.editor().toast(), "No");
    EXPECT_EQ(beeps, 1);
    EXPECT_FALSE(lines.editor().isBusy());
    lines.editor().setMonitoring({.soloed = {Lane::music}});
    EXPECT_TRUE(lines.editor().isBusy());
}

TEST(Editor, aChangeOfNothingIsNoStepAndNoSave) {
    int saves = 0;
    Editor editor(Lines::made(), {}, std::nullopt, [&](const Project&) { ++saves; });
    editor.change("Nothing", [](Project& project) { rename(project, "Stream"); });
    editor.apply([](Project& project) { rename(project, "Stream"); });
    EXPECT_EQ(saves, 0);
    EXPECT_TRUE(editor.history().past().empty());
    editor.change("Rename", [](Project& project) { rename(project, "B"); });
    EXPECT_EQ(saves, 1);
}

TEST(Editor, whatATaskFindsOutSurvivesAnOpenDragAndIsNotInItsStep) {
    Editor editor(Lines::made(), {}, std::nullopt, [](const Project&) {});
    editor.beginDrag("Slide");
    editor.dragPiece([](Project& project) { rename(project, "dragged"); });
    editor.apply([](Project& project) { project.language = "en"; });
    editor.undo(); // ends the drag and takes back that very drag
    EXPECT_EQ(editor.project().groups[0].name, "Stream");
    EXPECT_EQ(editor.project().language, "en");
    EXPECT_EQ(editor.history().redoName(), "Slide");
}

TEST(Editor, aGroupIsOneStepAlsoWithinAnother) {
    Editor editor(Lines::made(), {}, std::nullopt, [](const Project&) {});
    editor.group("Both", [&] {
        editor.change("One", [](Project& project) { rename(project, "1"); });
        editor.group("Inner",
                     [&] { editor.change("Two", [](Project& project) { project.language = "en"; }); });
    });
    ASSERT_EQ(editor.history().past().size(), 1);
    EXPECT_EQ(editor.history().undoName(), "Both");
}

TEST(Editor, aFileFoundAgainStaysFoundOverAnUndo) {
    Editor editor(Lines::made(), {}, std::nullopt, [](const Project&) {});
    editor.change("Note", [](Project& project) { project.sources.edit()[0].note = "words"; });
    editor.apply([](Project& project) { project.sources.edit()[0].path = "/found/rec.mp4"; });
    editor.undo();
    EXPECT_FALSE(editor.project().sources[0].note);
    EXPECT_EQ(editor.project().sources[0].path, "/found/rec.mp4");
    editor.change("Note", [](Project& project) { project.sources.edit()[0].note = "words"; });
    editor.apply([](Project& project) { project.sources.edit()[0].bookmark = Data{"found"}; });
    editor.undo();
    EXPECT_EQ(editor.project().sources[0].bookmark, Data{"found"}) << "also where its path is as it was";
    editor.redo();
    EXPECT_EQ(editor.project().sources[0].note, "words");
    EXPECT_EQ(editor.project().sources[0].bookmark, Data{"found"});
}

TEST(Editor, aGroupThatFailsKeepsWhatWasDoneAsItsStep) {
    Editor editor(Lines::made(), {}, std::nullopt, [](const Project&) {});
    editor.beginDrag("Slide");
    editor.dragPiece([](Project& project) { rename(project, "dragged"); });
    const auto both = [&] {
        editor.change("One", [](Project& project) { rename(project, "1"); });
        throw std::runtime_error("no");
    };
    EXPECT_THROW(editor.group("Both", both), std::runtime_error);
    EXPECT_EQ(editor.project().groups[0].name, "1");
    editor.undo();
    EXPECT_EQ(editor.project().groups[0].name, "dragged") << "the drag before it is a step of its own";
    editor.change("Two", [](Project& project) { rename(project, "2"); });
    EXPECT_EQ(editor.history().undoName(), "Two") << "and what comes after, too";
}

TEST(Editor, aDragThatIsTakenBackLeavesNothing) {
    Editor editor(Lines::made(), {}, std::nullopt, [](const Project&) {});
    const auto before = editor.project();
    editor.cancelDrag();
    editor.beginDrag("Slide");
    editor.dragPiece([](Project& project) { rename(project, "dragged"); });
    editor.cancelDrag();
    EXPECT_EQ(editor.project(), before);
    EXPECT_FALSE(editor.unfinished());
    const auto fails = [](Project& project) {
        rename(project, "half");
        throw std::runtime_error("no");
    };
    EXPECT_THROW(editor.change("Fails", fails), std::runtime_error);
    EXPECT_EQ(editor.project(), before) << "nor does a change that fails";
    EXPECT_TRUE(editor.history().past().empty());
}

TEST(Editor, aDragIsNotEndedByTheTimeOfTheOneBefore) {
    Lines closed, cancelled;
    for (auto* lines : {&closed, &cancelled}) {
        auto& editor = lines->editor();
        editor.dragPiece([](Project& project) { rename(project, "a"); });
        editor.endDragSoon("First");
        lines == &closed ? void(editor.closeDrag()) : editor.cancelDrag();
        editor.dragPiece([](Project& project) { rename(project, "b"); });
    }
    closed(R"(["wait",0.75])");
    EXPECT_TRUE(closed.editor().unfinished() && cancelled.editor().unfinished());
    EXPECT_EQ(closed.steps(), std::vector<std::string>{"Drag"});
    EXPECT_TRUE(cancelled.steps().empty());
}

TEST(Editor, aVideoThatCannotBePlayedSaysSoUntilItCan) {
    TwoCuts lines;
    lines.editor().change("Long",
                          [](Project& project) { project.videos.edit()[0].cuts.edit()[0].end = 1e9; });
    lines(R"(["closeDrag"])");
    EXPECT_TRUE(lines.editor().problem().value_or("").starts_with("This video could not be played. "));
    lines(R"(["undo"])");
    EXPECT_FALSE(lines.editor().problem());
}

TEST(Editor, marksMadeBeforeTheFootageIsThereAreMarksOnIt) {
    Lines lines;
    auto& editor = lines.editor();
    editor.holdClip(editor.project().clips[1].id);
    EXPECT_FALSE(editor.source.isLoaded());
    FootageCommands::markEnd(editor);
    EXPECT_EQ(editor.range(), (Stretch{39.9, 40})) << "the clip begins at 40 s";
    editor.setRange(std::nullopt);
    editor.source.step(3);
    FootageCommands::markStart(editor);
    EXPECT_EQ(editor.range(), (Stretch{43, 50}));
    while (editor.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(editor.source.time(), 43) << "and it opens where one went meanwhile";
}

TEST(Editor, whatIsSaidIsKeptForAllWhoAskUntilSomethingElseIs) {
    Editor editor(Lines::made(), {}, std::nullopt, [](const Project&) {});
    const auto line = editor.project().transcript(editor.project().sources[0].id).lines[0].id;
    const auto before = editor.allSaid();
    EXPECT_EQ(before->of(line)->tag, "C01.01");
    editor.change("Rename", [](Project& project) { rename(project, "B"); });
    EXPECT_EQ(editor.allSaid(), before);
    editor.change("Number", [](Project& project) { project.clips.edit()[0].number = 7; });
    EXPECT_EQ(editor.allSaid()->of(line)->tag, "C07.01");
    EXPECT_EQ(before->of(line)->tag, "C01.01") << "what somebody holds stays as it was";
    editor.undo();
    EXPECT_EQ(editor.allSaid()->of(line)->tag, "C01.01");
}
