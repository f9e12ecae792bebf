#include "core/playbooks/Playbooks.h"
#include "tests/fuzz/RoundTrip.h"

using namespace murbo;

namespace {

std::optional<Playbook> decoded(std::string_view text) {
    try {
        return Playbook::decode(text);
    } catch (const Problem& problem) {
        require(!problem.message().empty(), "a fault has no words");
        return std::nullopt;
    }
}

void checkTimes(const Playbook& playbook) {
    require(std::isfinite(playbook.naturalLength()) && playbook.naturalLength() >= 0.2, "it has no length");
    require(playbook.enterLength() <= playbook.naturalLength() / 2, "its entrance is too long");
    require(playbook.exitLength() <= playbook.naturalLength() / 2, "its exit is too long");
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto playbook = decoded({reinterpret_cast<const char*>(bytes), size});
    if (!playbook) return 0;
    const auto written = Playbooks::encoded(*playbook);
    const auto again = decoded(written);
    require(again.has_value(), "what was written is not taken any more");
    require(*again == *playbook, "read again, the playbook differs");
    require(Playbooks::encoded(*again) == written, "written again, the bytes differ");
    require(Playbooks::diff(written, written).empty(), "it differs from itself");
    checkTimes(*playbook);
    return 0;
}
