#pragma once

#include <string>

namespace murbo::PlaybookGuide {

/// The format explained to those who write playbooks, people and AI apps, with the vocabularies in place.
std::string text();

}
