#pragma once

#include "core/model/Source.h"
#include "platform/base/Problem.h"

#include <atomic>
#include <exception>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace murbo {

/// What measures of sources have in common: a file for each in the package's cache folder, and many sources
/// measured at once.
namespace Measures {

/// Where one kind of measure of a source is kept: "<cache>/<kind>/<identity><extension>".
std::filesystem::path place(const std::filesystem::path& cache, std::string_view kind, const Source& source,
                            std::string_view extension);

/// What is kept there; empty where there is nothing, or more than `most` bytes.
std::string kept(const std::filesystem::path& file, std::size_t max);

/// Keeps a measure. Where that fails it is measured again next time, and no worse than that.
void keep(const std::filesystem::path& file, std::string_view bytes);

/// Measures many sources, `atOnce` of them at a time. Those that can't be measured are left out.
template <class Measure, class Of>
std::map<UUID, Measure> ofAll(const std::vector<Source>& sources, std::size_t atOnce, Of of) {
    std::map<UUID, Measure> all;
    std::mutex lock;
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t at = next++; at < sources.size(); at = next++) {
            try {
                Measure measured = of(sources[at]);
                const std::lock_guard held(lock);
                all.emplace(sources[at].id, std::move(measured));
            } catch (const std::exception&) {
                // A lack of memory too costs this source alone: thrown on, it would end the program.
            }
        }
    };
    const std::size_t workers = std::clamp<std::size_t>(atOnce, 1, sources.size() + 1);
    std::vector<std::jthread> threads;
    for (std::size_t at = 1; at < workers; ++at) threads.emplace_back(work);
    work();
    threads.clear();
    return all;
}

}

}
