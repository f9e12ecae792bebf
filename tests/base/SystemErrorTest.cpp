#include "platform/base/SystemError.h"

#include <cerrno>

#include <gtest/gtest.h>

namespace murbo {

TEST(SystemError, saysWhatTheOwnerCanDoSomethingAbout) {
    EXPECT_EQ(SystemError::cause(ENOSPC), "there is no space left on the disk");
    EXPECT_EQ(SystemError::cause(EDQUOT), SystemError::cause(ENOSPC));
    EXPECT_EQ(SystemError::cause(EROFS), "the disk can only be read");
    EXPECT_FALSE(SystemError::cause(EXDEV).empty()) << "what has no words of ours has the system's";
}

}
