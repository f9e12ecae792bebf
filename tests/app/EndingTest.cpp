#include "app/options/Ending.h"
#include "platform/base/Problem.h"
#include "tests/Environment.h"

#include <gmock/gmock.h>

using namespace murbo;

namespace {

struct Ended {
    int code = 0;
    std::string printed;
};

Ended ended(const std::function<void()>& work) {
    testing::internal::CaptureStdout();
    const int code = Ending::of(work);
    return {code, testing::internal::GetCapturedStdout()};
}

void failOfACause() {
    try {
        throw std::out_of_range("deep");
    } catch (const std::exception&) {
        std::throw_with_nested(Problem("It did not work."));
    }
}

}

TEST(Ending, saysTheReasonAndItsCausesOnlyWhereAsked) {
    const Environment quiet("MURBO_DEBUG", "");
    unsetenv("MURBO_DEBUG");
    EXPECT_EQ(ended([] {}).code, 0);
    EXPECT_EQ(ended([] {}).printed, "") << "all went well";
    const auto end = ended(failOfACause);
    EXPECT_EQ(end.code, 1);
    EXPECT_EQ(end.printed, "error: It did not work.\n");
    EXPECT_EQ(ended([] { throw std::bad_alloc(); }).printed, "error: There is not enough memory.\n");
    const Environment debug("MURBO_DEBUG", "1");
    EXPECT_EQ(ended(failOfACause).printed,
              "error: It did not work.\nmurbo::Problem: It did not work.; from std::out_of_range: deep\n");
    EXPECT_THAT(ended([] { throw std::bad_alloc(); }).printed, testing::HasSubstr("\nstd::bad_alloc: "));
    EXPECT_EQ(ended([] { EXPECT_EQ(Ending::failure("No."), 1); }).printed, "error: No.\n")
        << "no more to say";
}
