#include "tests/app/CommandTest.h"

using namespace murbo;

using Interruption = CommandTest;

TEST_F(Interruption, aHangupThatTheParentIgnoresIsIgnored) {
    addVideo();
    const auto script = "trap '' HUP; " + quoted(MURBO_PROGRAM) + " --export " + quoted(project) + " V1 " +
                        quoted(folder / "a.mp4") +
                        " & while kill -HUP $! 2>/dev/null; do sleep 0.05; done; wait $!";
    shell("bash -c " + quoted(script));
    EXPECT_TRUE(std::filesystem::exists(folder / "a.mp4"));
}

TEST_F(Interruption, anInterruptedExportLeavesNothing) {
    addVideo(200);
    folder.file("out/old.mp4", "old");
    const auto command = "env --default-signal=INT,TERM " + quoted(MURBO_PROGRAM) + " --export " +
                         quoted(project) + " V1 " + quoted(folder / "out/old.mp4");
    // With job control, or the shell would have its background jobs ignore Ctrl-C.
    for (const std::string signal : {"INT", "TERM"}) {
        const auto script = "set -m; " + command +
                            " & job=$!; { sleep 60; kill -KILL $job; } >/dev/null & sleep 1.5; kill -" +
                            signal + " $job; wait $job; code=$?; kill -- -$!; exit $code";
        EXPECT_EQ(shell("bash -c " + quoted(script)), failure("The export was cancelled.")) << signal;
        EXPECT_EQ(contentsOf(folder / "out/old.mp4"), "old");
        EXPECT_EQ(entriesIn(folder / "out"), 1);
    }
}
