#include "core/ai/Ask.h"

namespace murbo {

std::string Ask::text() const {
    std::string all;
    for (const auto& message : messages) {
        if (&message != &messages.front()) all += '\n';
        all += message.content;
    }
    return all;
}

}
