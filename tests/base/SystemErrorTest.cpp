#include "platform/base/SystemError.h"

#include <cerrno>

#include <gtest/gtest.h>

namespace murbo {

TEST(SystemError, saysWhatTheOwnerCanDoSomethingAbout) {
    for (const auto& [error, words] : {std::pair{ENOSPC, "there is no space left on the disk"},
                                       {EDQUOT, "there is no space left on the disk"},
                                       {EACCES, "you have no permission"},
                                       {EPERM, "you have no permission"},
                                       {EROFS, "the disk can only be read"},
                                       {ENAMETOOLONG, "its name is too long"},
                                       {EIO, "the disk reports an error"}})
        EXPECT_EQ(SystemError::cause(error), words) << error;
    EXPECT_FALSE(SystemError::cause(EXDEV).empty()) << "what has no words of ours has the system's";
}

}
