#include "core/ai/Prompts.h"

namespace murbo {

std::string Prompts::aspectSentence(Video::Aspect aspect) {
    return aspect == Video::Aspect::horizontal
               ? "The videos are horizontal (16:9): as long as the story needs, tight rather than padded."
               : "The videos are vertical Shorts (9:16): under 60 seconds, and tighter is better.";
}

}
