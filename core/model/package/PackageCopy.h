#pragma once

#include "core/model/Project.h"

#include <filesystem>
#include <stop_token>

namespace murbo {

/// A second package of a project, with all that lies in the first: media, playbooks, caches and history.
namespace PackageCopy {

/// Copies `from` to `to` and writes `project` there. The copy is made beside its place and put there when it
/// is whole, never over anything: throws ProjectError `exists` where something has the name, a Problem where
/// it can't be made. A stop leaves nothing and throws a Problem as well.
void make(const std::filesystem::path& from, const std::filesystem::path& to, const Project& project,
          const std::stop_token& stop = {});

}

}
