#include "platform/base/JsonWriter.h"
#include "platform/base/Problem.h"

#include <cmath>

#include <gtest/gtest.h>

namespace murbo {

std::string written(JsonWriter::Layout layout) {
    JsonWriter writer(layout);
    writer.beginObject();
    writer.key("a\n\"");
    writer.beginArray();
    writer.integer(-3);
    writer.number(0.1);
    writer.null();
    writer.endArray();
    writer.key("none");
    writer.beginObject();
    writer.endObject();
    writer.key("text");
    writer.text("ก\x01");
    writer.endObject();
    return writer.finish();
}

TEST(JsonWriter, writesTheSameBytesEachTime) {
    EXPECT_EQ(written(JsonWriter::Layout::compact), R"({"a\n\"":[-3,0.1,null],"none":{},"text":"ก\u0001"})");
    const auto pretty = written(JsonWriter::Layout::pretty);
    EXPECT_EQ(pretty, written(JsonWriter::Layout::pretty));
    EXPECT_TRUE(pretty.starts_with("{\n  \"a")) << pretty;
    EXPECT_TRUE(pretty.ends_with("}\n"));
}

TEST(JsonWriter, refusesWhatNoReaderWouldTake) {
    JsonWriter writer(JsonWriter::Layout::compact);
    writer.beginArray();
    for (const double number : {double(NAN), HUGE_VAL, -HUGE_VAL})
        EXPECT_THROW(writer.number(number), Problem);
    EXPECT_THROW(writer.text("\xFF"), Problem);
}

TEST(JsonWriter, namesTheElementThatCannotBeWritten) {
    JsonWriter writer(JsonWriter::Layout::pretty);
    writer.beginObject();
    writer.key("a");
    writer.beginArray();
    writer.text("\"\\\r\t\x1F\x7F");
    writer.beginObject();
    writer.key("b");
    try {
        writer.text("\xFF");
        FAIL();
    } catch (const Problem& problem) {
        EXPECT_EQ(problem.message(), "a[2].b: this text is not UTF-8") << "counted from 1";
    }
    writer.integer(INT64_MIN);
    writer.endObject();
    writer.endArray();
    writer.endObject();
    EXPECT_EQ(writer.finish(),
              "{\n  \"a\": [\n    \"\\\"\\\\\\r\\t\\u001f\x7F\",\n    {\n      \"b\": "
              "-9223372036854775808\n    }\n  ]\n}\n");
}

}
