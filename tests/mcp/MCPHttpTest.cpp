#include "core/mcp/MCPHttp.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

std::string posted(const std::string& body, const std::string& headers = "Host: localhost:17172\r\n") {
    return "POST /mcp HTTP/1.1\r\n" + headers + "Content-Length: " + std::to_string(body.size()) +
           "\r\n\r\n" + body;
}

bool allowed(MCPHttp::Headers headers) {
    return MCPHttp::allowed(headers);
}

}

TEST(MCPRequest, isThereOnceItsLastByteIs) {
    const auto whole = posted("{\"a\": 1}");
    for (std::size_t count = 0; count < whole.size(); ++count)
        ASSERT_FALSE(MCPHttp::request(whole.substr(0, count))) << count;
    const auto request = MCPHttp::request(whole + "surplus");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->method, "POST");
    EXPECT_EQ(request->body, "{\"a\": 1}");
}

TEST(MCPRequest, takesHeadersAsTheyCome) {
    const auto request = MCPHttp::request(
        "GET  /x\r\nHOST:  first \r\nno header\r\nhost: a:b\r\nContent-Length: many\r\n\r\nbody");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->headers, (MCPHttp::Headers{{"host", "a:b"}, {"content-length", "many"}}));
    EXPECT_EQ(request->body, "");
    EXPECT_FALSE(MCPHttp::request("POST / \xff\r\n\r\n")) << "not UTF-8";
    EXPECT_EQ(MCPHttp::request("\r\n\r\n")->method, "");
}

TEST(MCPRequest, hasItsBounds) {
    EXPECT_TRUE(MCPHttp::isTooLong(std::string(MCPHttp::maxHeadBytes, 'x')));
    EXPECT_FALSE(MCPHttp::isTooLong(posted("{}")));
    for (const auto* length : {"67108865", "18446744073709551615", "99999999999999999999999"})
        EXPECT_TRUE(MCPHttp::isTooLong("POST /\r\nContent-Length: " + std::string(length) + "\r\n\r\n"))
            << length;
    const std::string most = "POST /\r\nContent-Length: 67108864\r\n\r\n";
    EXPECT_TRUE(MCPHttp::isTooLong(most)) << "the head counts";
    EXPECT_FALSE(MCPHttp::isTooLong("POST /\r\nContent-Length: 67108000\r\n\r\n"));
    EXPECT_FALSE(MCPHttp::isTooLong("POST /\r\nContent-Length: -5\r\n\r\n")) << "unreadable counts as 0";
}

TEST(MCPRequest, isTrustedByHostAndOrigin) {
    EXPECT_TRUE(allowed({{"host", "localhost:17172"}}));
    EXPECT_TRUE(allowed({{"host", "127.0.0.1"}, {"origin", "http://localhost:6274"}}));
    EXPECT_TRUE(allowed({{"host", "LOCALHOST"}, {"origin", "http://somebody@localhost:6274/x"}}));
    EXPECT_FALSE(allowed({}));
    for (const auto* host :
         {"evil.com", "evil.com:17172", "localhost.evil.com", "localhost@evil.com", "[::1]:17172", ""})
        EXPECT_FALSE(allowed({{"host", host}})) << host;
    for (const auto* origin :
         {"null", "", "http://evil.com", "https://localhost.evil.com", "http://localhost@evil.com",
          "localhost", "http://", "http://localhost\\@evil.com", "http://evil.com/@localhost",
          "http://evil.com?@localhost", "http://evil.com#@localhost"})
        EXPECT_FALSE(allowed({{"host", "localhost"}, {"origin", origin}})) << origin;
}

TEST(MCPHttp, refusesStrangersBeforeWhatTheyAskFor) {
    const auto refusal = [](const char* method, const char* host) {
        return MCPHttp::refusal({method, {{"host", host}}, ""}).value_or("none").substr(0, 12);
    };
    EXPECT_EQ(refusal("POST", "localhost"), "none");
    EXPECT_EQ(refusal("post", "localhost"), "HTTP/1.1 405");
    EXPECT_EQ(refusal("GET", "evil.com"), "HTTP/1.1 403");
    EXPECT_EQ(MCPHttp::response("200 OK", "ab\n"),
              "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: 3\r\nConnection: "
              "close\r\n\r\nab\n");
    EXPECT_TRUE(MCPHttp::parseError().starts_with("HTTP/1.1 400 Bad Request\r\n"));
    EXPECT_TRUE(MCPHttp::parseError().ends_with("\"message\":\"Parse error\"}}"));
}
