#include "core/ai/Conversation.h"

namespace murbo {

const Ask& Conversation::ask() const {
    const auto* loop = reading();
    return loop ? loop->ask() : std::get<Telling>(told).ask;
}

bool Conversation::goesOn(std::string_view reply) {
    auto* loop = std::get_if<Reading>(&told);
    return loop && loop->goesOn(reply);
}

const Project& Conversation::project() const {
    const auto* loop = reading();
    return loop ? loop->project() : *std::get<Telling>(told).project;
}

const Said& Conversation::said() const {
    const auto* loop = reading();
    return loop ? loop->said() : *std::get<Telling>(told).said;
}

}
