#include "platform/base/JsonWriter.h"
#include "platform/base/Problem.h"

#include <gtest/gtest.h>

namespace murbo {

TEST(JsonWriter, namesTheElementThatCannotBeWritten) {
    JsonWriter writer(JsonWriter::Layout::pretty);
    writer.beginObject();
    writer.key("a");
    writer.beginArray();
    writer.text("\"\\\r\t\x1F\x7F");
    writer.beginObject();
    writer.key("b\n\"");
    try {
        writer.text("\xFF");
        FAIL();
    } catch (const Problem& problem) {
        EXPECT_EQ(problem.message(), "a[2].b\n\": this text is not UTF-8") << "counted from 1";
    }
    writer.integer(INT64_MIN);
    writer.key("none");
    writer.beginObject();
    writer.endObject();
    writer.endObject();
    writer.endArray();
    writer.endObject();
    EXPECT_EQ(writer.finish(),
              "{\n  \"a\": [\n    \"\\\"\\\\\\r\\t\\u001f\x7F\",\n    {\n      \"b\\n\\\"\": "
              "-9223372036854775808,\n      \"none\": {}\n    }\n  ]\n}\n");
}

}
