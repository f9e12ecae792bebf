#include "core/ai/LastRuns.h"

#include "platform/base/RawText.h"

#include <chrono>

namespace murbo {

void LastRuns::note(std::optional<Runs>& runs, Kit::ID kit, const Run& run) {
    if (!runs) runs.emplace();
    (*runs)[std::string(rawText(kit))] = run;
}

std::optional<Run> LastRuns::of(const std::optional<Runs>& runs, Kit::ID kit) {
    if (!runs) return std::nullopt;
    const auto found = runs->find(std::string(rawText(kit)));
    return found == runs->end() ? std::nullopt : std::optional(found->second);
}

Run LastRuns::now(Run::By by, std::optional<std::string> with) {
    // A run's clock starts on the first day of 2001.
    constexpr std::chrono::sys_days start = std::chrono::year(2001) / 1 / 1;
    const std::chrono::duration<double> since = std::chrono::system_clock::now() - start;
    return {.at = since.count(), .by = by, .with = std::move(with)};
}

}
