#pragma once

#include "core/ai/Reading.h"

#include <memory>
#include <string_view>
#include <variant>

namespace murbo {

/// What a model is told of a project as it stood: in one request, or in a reading loop.
class Conversation {
public:
    /// One request, about a project and what is said in it.
    struct Telling {
        std::shared_ptr<const Project> project;
        std::shared_ptr<const Said> said;
        Ask ask;

        explicit Telling(const Project& now)
            : project(std::make_shared<const Project>(now)), said(std::make_shared<const Said>(*project)) {}
    };

    explicit Conversation(Telling telling) : told(std::move(telling)) {}
    explicit Conversation(Reading loop) : told(std::move(loop)) {}

    /// What is to be sent next.
    const Ask& ask() const;
    /// Takes a reply. Whether it asked to read more, and `ask` is to be sent again.
    bool goesOn(std::string_view reply);
    /// The reading loop; null for one request.
    const Reading* reading() const { return std::get_if<Reading>(&told); }

    const Project& project() const;
    const Said& said() const;

private:
    std::variant<Telling, Reading> told;
};

}
