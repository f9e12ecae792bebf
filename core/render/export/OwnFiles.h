#pragma once

#include "core/render/plan/Plan.h"

#include <filesystem>
#include <set>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace murbo {

struct Project;
struct Video;

/// What a project is made of: its package, its footage, the files that its videos name, playbooks and the
/// files that those name. Nothing that is written out of a project may take such a file's place: a slip of
/// the hand must not cost the only copy of a recording.
class OwnFiles {
public:
    /// Of all the project's videos, and of the playbooks that one of them shows. Looks the files up once.
    OwnFiles(const Project& project, const Video& video, const Plan& plan);

    /// Throws a Problem where writing to a place would land on one of them, or inside the package or a
    /// playbook's folder. Links are followed.
    void refuse(const std::filesystem::path& place) const;

private:
    void add(const std::filesystem::path& file);

    std::set<std::pair<dev_t, ino_t>> files;    ///< device and inode
    std::vector<std::filesystem::path> folders; ///< without links
};

}
