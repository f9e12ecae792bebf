#include "tests/paid/PaidProject.h"

using namespace murbo;
using testing::HasSubstr, testing::StartsWith;

namespace {

using json = nlohmann::json;

class PaidCommands : public PaidProject {
protected:
    std::size_t requests() const { return model.bodies().size(); }

    /// Sends a signal once a request has come that the model does not answer, for which a run would wait for
    /// a quarter of an hour. Gives what it printed.
    Ran interrupted(const std::string& signal, const std::string& words) {
        const auto before = requests();
        std::jthread interrupting([&] {
            while (requests() == before) std::this_thread::sleep_for(std::chrono::milliseconds(5));
            shell("kill -" + signal + " $(cat " + quoted(folder / "pid") + ")");
        });
        return shell("cd " + quoted(folder.path) + "; env --default-signal=INT,TERM " + environment() +
                     " sh -c 'echo $$ >pid; exec " + MURBO_PROGRAM + " " + words + "'");
    }
};

}

TEST_F(PaidCommands, nothingIsReadOrSentForAnAddressThatIsNone) {
    for (const std::string address : {"http://example.org", "nonsense"})
        EXPECT_EQ(run({"--ideas", folder / "none.mbproj"}, "MURBO_OPENROUTER=" + address),
                  failure("Nothing is sent to " + address + ": it is no HTTPS address."));
}

TEST_F(PaidCommands, checkInTurnBeforeTheyCostAnything) {
    const auto noKey = "OPENROUTER_API_KEY=";
    const std::string addKey = "Add your OpenRouter key in Settings ▸ AI to use the AI";
    const std::string yes = "This costs money. Say --yes to go on.";
    const auto plain = [&](std::vector<std::string> words, const std::string& also = "") {
        return murboWith(words, environment(also));
    };
    EXPECT_EQ(plain({"--look", folder / "none.mbproj", "V1"}).code, 1);
    EXPECT_EQ(plain({"--look", package, "v9"}, noKey), failure("The project has no video v9."));
    EXPECT_EQ(plain({"--look", package, "V1"}, noKey), failure(addKey));
    EXPECT_EQ(plain({"--describe", package, "all"}, noKey),
              failure("Add your OpenRouter key in Settings ▸ AI to describe clips"));
    EXPECT_EQ(plain({"--cut", package, " "}, noKey), failure(addKey));
    EXPECT_EQ(plain({"--cut", package, " "}), failure("Say what the video should be"));
    EXPECT_EQ(plain({"--cut", package, "--yes"}), failure("Say what the video should be"));
    EXPECT_EQ(plain({"--revise", package, "V1", "\n"}), failure("Say how the cuts should change"));
    EXPECT_EQ(plain({"--describe", package, "C03"}),
              failure("Transcribe the clip first: nothing is said in it yet"));
    EXPECT_EQ(plain({"--sound", package, "V1"}),
              failure("The sound library is empty: Settings ▸ General ▸ Sounds"));
    EXPECT_EQ(plain({"--look", package, "V1"}), failure(yes));
    EXPECT_EQ(plain({"--cut", package, "x"}), failure(yes));
    EXPECT_EQ(plain({"--cut", package, "--aspect", "1:1", "x"}), failure(yes));
    EXPECT_EQ(plain({"--ideas", package, "--yes", "more", "jokes"}),
              failure("“jokes” is one word too many. Put words that belong together in quotes."));
    EXPECT_EQ(plain({"--cut", package, "x", "--aspect", "3:2"}),
              failure("There is no aspect 3:2: it is 9:16, 16:9, 1:1 or 4:5."));
    for (const auto* none : {"C09", "c01", ",", ""})
        EXPECT_EQ(plain({"--describe", package, none}), (Ran{0, ""})) << "there is nothing to do";
    EXPECT_EQ(requests(), 0u);
    EXPECT_EQ(model.priceLists(), 0) << "nobody was asked";
    EXPECT_EQ(logged(), "");
}

TEST_F(PaidCommands, comeAfterTheOlderOnes) {
    EXPECT_THAT(run({"--cut", package, "x", "--summary", package}).out, StartsWith("Stream\n"));
    EXPECT_EQ(requests(), 0u);
}

TEST_F(PaidCommands, anInterruptedRequestLeavesTheProjectAsItWas) {
    const auto before = projectFile();
    for (const std::string signal : {"INT", "TERM"}) {
        model.sends("");
        EXPECT_EQ(interrupted(signal, "--cut p.mbproj x --yes"), failure("It was cancelled."));
    }
    EXPECT_EQ(logged(), "Cut to instruction: reading, stopped; Cut to instruction: reading, stopped");
    EXPECT_EQ(projectFile(), before);

    // A batch that is stopped has none after it.
    auto project = this->project();
    project.clips.edit()[0].end = project.clips[0].start + 1990;
    ProjectPackage::write(project, package, nullptr);
    model.sends("");
    EXPECT_EQ(interrupted("INT", "--describe p.mbproj all --yes").code, 1);
    EXPECT_EQ(log().size(), 3u);
    EXPECT_EQ(requests(), 3u);
}

TEST_F(PaidCommands, theKeyStaysWhereItIs) {
    model.sends(
        FakeServer::reply(401, json{{"error", {{"message", "No user has the key " + key + "."}}}}.dump()));
    EXPECT_EQ(run({"--look", package, "V1"}), failure("OpenRouter did not answer. No user has the key …."));
    model.says(json{{"title", key}, {"note", "The key is " + key}}.dump());
    EXPECT_EQ(run({"--cut", package, "x"}), failure("The key is …"));
    EXPECT_EQ(shell("grep -r " + key + " " + quoted(folder.path)).out, "");
}

TEST_F(PaidCommands, whatWasSpentIsAddedUp) {
    model.answers(json{{"cuts", cutsOf({{"C01.01", "C01.02"}})}});
    EXPECT_EQ(murboWith({"--spent", package}), printed("Nothing was spent in this project."));
    run({"--cut", package, "x"});
    EXPECT_THAT(murboWith({"--spent", package}).out, HasSubstr("  $0.010  Cut to instruction\n"));
    folder.file("config/murbo/settings.json", R"({"spendCap": 0.005})");
    EXPECT_EQ(run({"--cut", package, "x"}),
              failure("This would pass your limit of $0.01 a day: $0.01 was spent today."));
    EXPECT_EQ(model.bodies().size(), 1u);
    EXPECT_EQ(log().size(), 1u) << "what was never sent is not logged";
}
