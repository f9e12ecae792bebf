#include "core/intake/Markers.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre, testing::IsEmpty;
using Times = std::vector<double>;

TEST(MarkerTable, tablesOfOtherProgramsAreReadByTheirTimeColumn) {
    const std::pair<const char*, Times> cases[] = {
        {"\"0:25:37\",\"boss, down\"\n\"0:31:02\",\"\"\n", {1537, 1862}},
        {"0:25:37\tboss down\n0:31:02\twin\n", {1537, 1862}},
        {"0:25:37;boss, down;red\n", {1537}},
        {"Time;Label\n0:25:37;boss\n", {1537}},
        {"Marker Name,Description,In,Out,Duration,Marker Type\nboss "
         "down,,00:25:37:12,00:25:37:12,00:00:00:00,Comment\n"
         "win,\"a, b\",00:31:02;04,00:31:02;04,00:00:00;00,Chapter\n",
         {1537, 1862}},
        {"Name\tStart\tDuration\tTime Format\tType\tDescription\nboss "
         "down\t25:37.400\t0:00.000\tdecimal\tCue\t\n",
         {1537.4}},
        {"Name,Start\n\"he said \"\"go, go\"\"\",0:25:37\n", {1537}},
        // Each name of a column of times, and the best of several.
        {"Name,Recording Timestamp,In\nx,0:07,0:08\n", {7}},
        {"Name,Stream Timestamp,Record In\nx,0:07,0:08\n", {8}},
        {"Name,Record In,Marker Time\nx,0:07,0:08\n", {8}},
        {"Name,Marker Time,Start Time\nx,0:07,0:08\n", {8}},
        {"Name,Start Time,Timecode\nx,0:07,0:08:00:12\n", {480}},
        {"Name,Timecode,Timestamp\nx,0:07,0:08\n", {8}},
        {"Name,Timestamp,Time\nx,0:07,0:08\n", {8}},
        {"Name,Time,Start\nx,0:07,0:08\n", {8}},
        {"Name,Start,In\nx,0:07,0:08\n", {8}},
        {"a,b;Start;c\nx;0:07;y\n", {7}},
        {"Name,  START \n \"a\"\"b, c\" , \"0:07\" \nshort\n", {7}},
        // Decided by the plain rule, whatever another column says.
        {"Name,Start\n5,0:25:37\n", {5}},
        // A line of four parts, a time that no column announces, words.
        {"1:2:3:4;x\n", {}},
        {"boss,0:25:37\n", {}},
        {"Name,Start\nboss\n", {}},
    };
    for (const auto& [text, times] : cases)
        EXPECT_THAT(Markers::parse(text), testing::Pointwise(testing::DoubleEq(), times)) << text;
}

TEST(MarkerTable, aLogOfManyRecordingsGivesOnlyThoseOfThisOne) {
    const std::string log =
        "Date Time, Stream Start, Stream Timestamp, Stream End Mark Timestamp, Recording Full Path, "
        "Recording "
        "Filename, Recording Timestamp, Recording End Mark Timestamp, Recording Timestamp on File, Recording "
        "End "
        "Mark Timestamp on File, Comment\n"
        "2026-01-10 20:41:07, n/a, n/a, n/a, D:/V/one.mkv, one.mkv, 00:25:37, n/a, 00:05:37, n/a, boss, "
        "down\n"
        "2026-01-11 20:41:07, n/a, n/a, n/a, D:/V/two.mkv, two.mkv, 00:00:09, n/a, 00:00:09, n/a, \n"
        "2026-01-11 20:42:07, n/a, 0:01, n/a, n/a, n/a, n/a, n/a, n/a, n/a, not recording\n";
    EXPECT_THAT(Markers::parse(log, "one.mkv"), ElementsAre(337));
    EXPECT_THAT(Markers::parse(log, "two.mp4"), ElementsAre(9)); // packed anew
    EXPECT_THAT(Markers::parse(log, "three.mkv"), IsEmpty());
    const auto oneOnly = log.substr(0, log.find("2026-01-11"));
    EXPECT_THAT(Markers::parse(oneOnly, "renamed.mp4"), ElementsAre(337));
}
