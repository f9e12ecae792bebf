#include "core/intake/Markers.h"
#include "tests/TemporaryFolder.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;
using Times = std::vector<double>;

TEST(Markers, readsOneToThreePartsAndNothingElse) {
    const std::pair<const char*, Times> cases[] = {
        {"1:23,boss down", {83}},
        {"01:02:03.5,label,more", {3723.5}},
        {"1::30", {90}},
        {" 1 :\t23 ,x", {83}},
        {"\u00A01:23\u3000,x", {83}},
        {"-10", {-10}},
        {"+5", {5}},
        {"1e2", {100}},
        {"1:2:3:4,four parts", {}},
        {"time,label", {}},
        {",label", {}},
        {"+-5", {}},
        {"nan", {}},
        {"inf,x", {}},
        {"1:inf", {}},
        {"1e999", {}},
        // Every line break of Unicode ends a line, and a byte order mark hides no marker.
        {"time,label\r\n\r\n3,c\n1,a\v2\f4\r5\u00856\u20287\u20298", {3, 1, 2, 4, 5, 6, 7, 8}},
        {"\uFEFF0:10,a\n0:20,b", {10, 20}},
    };
    for (const auto& [text, times] : cases) EXPECT_EQ(Markers::parse(text), times) << text;
    EXPECT_THAT(Markers::parse(std::string_view("1\0002\n3", 5)), ElementsAre(3));
}

TEST(Markers, findsTheFileWithTheLongestNameThenTheSameDay) {
    const TemporaryFolder folder;
    const auto recording = [&](const char* name) { return Markers::find(folder / name); };
    const auto named = [&](const char* name) { return std::optional(folder / name); };
    EXPECT_EQ(recording("2024-05-17 21-03-11.mkv"), std::nullopt);

    folder.file("2024-05-17 other.csv");
    folder.file(".csv");
    std::filesystem::create_directory(folder / "2024-05-17 21-03-11.csv");
    EXPECT_EQ(recording("2024-05-17 21-03-11.mkv"), named("2024-05-17 other.csv"));
    EXPECT_EQ(recording("2024-05-18 21-03-11.mkv"), std::nullopt);
    EXPECT_EQ(recording("2024-05.mkv"), std::nullopt);

    std::filesystem::remove(folder / "2024-05-17 21-03-11.csv");
    folder.file("2024-05-17.csv");
    folder.file("2024-05-17 21.CSV");
    EXPECT_EQ(recording("2024-05-17 21-03-11.mkv"), named("2024-05-17 21.CSV"));
    folder.file("2024-05-17 21-03-11.csv");
    EXPECT_EQ(recording("2024-05-17 21-03-11.mkv"), named("2024-05-17 21-03-11.csv"));
    EXPECT_EQ(recording("2024-05-17 21-03-11 part2.mov"), named("2024-05-17 21-03-11.csv"));

    for (const std::string day : {"2025-01-01", "2025-01-02", "2025-01-03", "2025-01-04", "2025-01-05"}) {
        for (const char* name : {" b.csv", " d.csv", " a.csv", " c.csv"}) folder.file(day + name);
        EXPECT_EQ(recording((day + " 21.mkv").c_str()), folder / (day + " a.csv")) << "the first by name";
    }
    folder.file("Stream.csv");
    EXPECT_EQ(recording("stream one.mkv"), std::nullopt); // names differ in case
    folder.file("สตรีมวันเสาร์ เกม.csv");
    EXPECT_EQ(recording("สตรีมวันเสาร์ ตอน 2.mkv"), named("สตรีมวันเสาร์ เกม.csv"));
    EXPECT_EQ(Markers::find(folder / "no such folder" / "a.mkv"), std::nullopt);
    folder.file("วันที่ 17 ก.csv"); // of ten characters only seven are shared, though ten code points are
    EXPECT_EQ(recording("วันที่ 17 เกม.mkv"), std::nullopt) << "another recording's";
    folder.file("วันที่ 17 เกมเก่า.csv");
    EXPECT_EQ(recording("วันที่ 17 เกมใหม่.mkv"), named("วันที่ 17 เกมเก่า.csv"));
}

TEST(Markers, readsUtf8AndUtf16ButNoOtherBytes) {
    const TemporaryFolder folder;
    using namespace std::string_view_literals;
    EXPECT_EQ(Markers::text(folder.file("a", "1,ก\r\n")), "1,ก\r\n");
    EXPECT_EQ(Markers::text(folder.file("b", "\xFF\xFE\x31\0,\0\x01\x0E"sv)), "1,ก");
    EXPECT_EQ(Markers::text(folder.file("c", "\xFE\xFF\0\x31\0,\x0E\x01"sv)), "1,ก");
    EXPECT_EQ(Markers::text(folder.file("d", "1,caf\xE9")), std::nullopt);
    EXPECT_EQ(Markers::text(folder.file("e", "\xFF\xFE\x31"sv)), std::nullopt);
    EXPECT_EQ(Markers::text(folder.path), std::nullopt);
    EXPECT_EQ(Markers::text(folder / "none"), std::nullopt);
}
