#include "platform/base/SystemError.h"

#include <cerrno>
#include <system_error>

namespace murbo {

std::string SystemError::cause(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
            return "there is no space left on the disk";
        case EACCES:
        case EPERM:
            return "you have no permission";
        case EROFS:
            return "the disk can only be read";
        case ENOENT:
            return "it does not exist";
        case ENOTDIR:
        case EEXIST:
            return "a file stands where a folder is needed";
        case EISDIR:
            return "it is a folder";
        case ESPIPE:
            return "it is no ordinary file";
        case EFBIG:
            return "it is too large";
        case ENAMETOOLONG:
            return "its name is too long";
        case EIO:
            return "the disk reports an error";
        default:
            return std::generic_category().message(error);
    }
}

}
