#include "core/ai/Spending.h"

#include "platform/base/Descriptor.h"
#include "platform/base/Files.h"
#include "platform/base/HomeFolder.h"
#include "platform/base/Numbers.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <sstream>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

namespace murbo {
namespace {

namespace fs = std::filesystem;

constexpr const char* capKey = "spendCap";
constexpr std::size_t largest = 16 << 20; // bytes; a day of a request a second and more

std::string day(Date date) {
    const auto seconds = std::chrono::system_clock::to_time_t(date);
    std::tm local{};
    localtime_r(&seconds, &local);
    return fmt::format("{:04}-{:02}-{:02}", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

fs::path folder() {
    const char* state = std::getenv("XDG_STATE_HOME");
    const auto base = state && *state == '/' ? fs::path(state) : homeFolder() / ".local/state";
    return base / "murbo/spent";
}

/// A file for each day, a cost a line: whoever adds one needs to know nothing of the others.
fs::path todaysFile() {
    return folder() / day(std::chrono::system_clock::now());
}

void removeOtherDays(const fs::path& kept) {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(kept.parent_path(), ignored))
        if (entry.path() != kept) fs::remove(entry.path(), ignored);
}

/// What was asked for, whatever clips or rounds it took.
std::string task(const Activity& entry) {
    const auto title = entry.title.substr(0, entry.title.find(": reading"));
    for (const auto& [start, name] : {std::pair{"Describe ", "Describe Clips"},
                                      {"Revise ", "Revise Cuts"},
                                      {"Transcribe ", "Transcribe"},
                                      {"Fix Words", "Fix Words"}})
        if (title.starts_with(start)) return name;
    return title;
}

void addTotals(std::string& text, const char* heading, const std::map<std::string, double>& totals) {
    text += fmt::format("{}:\n", heading);
    for (const auto& [name, dollars] : totals) text += fmt::format("  ${:.3f}  {}\n", dollars, name);
}

}

void Spending::add(double dollars) try {
    const auto path = todaysFile();
    Files::createFolder(path.parent_path());
    const Descriptor file(::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600));
    if (file < 0) return;
    const auto line = fmt::format("{}\n", dollars);
    if (::write(file, line.data(), line.size()) < 0) return;
    removeOtherDays(path);
} catch (const Problem&) {
}

double Spending::today() try {
    std::istringstream lines(Files::readWhole(todaysFile(), largest));
    double sum = 0;
    for (std::string line; std::getline(lines, line);) sum += Numbers::parse(line).value_or(0);
    return sum;
} catch (const Problem&) {
    return 0;
}

std::optional<std::string> Spending::refusal(std::optional<double> estimate) {
    const auto cap = SettingsStore::standard().number(capKey);
    if (!cap) return std::nullopt;
    const double spent = today();
    if (spent + std::max(0.0, estimate.value_or(0)) <= *cap) return std::nullopt;
    return fmt::format("This would pass your limit of ${:.2f} a day: ${:.2f} was spent today.", *cap, spent);
}

std::string Spending::summary(const std::vector<Activity>& log) {
    std::map<std::string, double> days, tasks, models;
    double sum = 0;
    for (const auto& entry : log) {
        if (!entry.cost) continue;
        sum += *entry.cost;
        days[day(entry.started)] += *entry.cost;
        tasks[task(entry)] += *entry.cost;
        models[entry.engine.value_or("no model named")] += *entry.cost;
    }
    if (days.empty()) return "Nothing was spent in this project.\n";
    std::string text = fmt::format("${:.3f} in all\n", sum);
    addTotals(text, "By day", days);
    addTotals(text, "By task", tasks);
    addTotals(text, "By model", models);
    return text;
}

}
