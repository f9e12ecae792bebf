#pragma once

#include "platform/base/UUID.h"

#include <set>

namespace murbo {

struct Project;
struct Source;

/// Which footage is there. Another system's file references (Source::bookmark) can't be resolved here: they
/// are kept as they were found, and none are made.
namespace SourceFinder {

/// The ids of the sources whose file is missing.
std::set<UUID> find(const Project& project);

/// Whether a source's file is there.
bool find(const Source& source);

}

}
