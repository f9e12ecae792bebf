#pragma once

#include "core/playbooks/Library.h"
#include "core/playbooks/Playbooks.h"
#include "platform/base/Files.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace murbo {

/// A library of the owner's in a folder of the test's own, and settings of the tests' own.
class OwnersLibrary : public testing::Test {
protected:
    OwnersLibrary() {
        Library::setOverride(folder.path);
        Playbooks::dropListing();
    }
    ~OwnersLibrary() override { Library::setOverride(std::nullopt); }

    std::filesystem::path asset(const std::string& name) const {
        return folder.file(name, "picture " + name);
    }
    static std::string read(const std::filesystem::path& file) { return Files::readWhole(file, 1 << 20); }
    static Playbook named(const std::string& name) {
        return Playbook::decode(R"({"name": ")" + name + R"(", "layers": [{"text": "Hi"}]})");
    }

    const TemporaryFolder folder;

private:
    // The store of settings is opened once a process.
    static inline const TemporaryFolder settings;
    static inline const Environment config{"XDG_CONFIG_HOME", settings.path};
};

}
