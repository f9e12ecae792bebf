// Feeds a fuzzer its seeds where there is no libFuzzer, whole and damaged in ways that never change.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

constexpr int damagedCopies = 2000;
constexpr std::uint32_t seed = 20010101;

void feed(const std::string& text) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

/// Cuts off, repeats, or overwrites a little of the text.
void damage(std::string& text, std::mt19937& random) {
    if (text.empty()) return;
    const auto at = random() % text.size();
    switch (random() % 4) {
        case 0:
            text.resize(at);
            break;
        case 1:
            text.insert(at, text.substr(random() % text.size(), random() % 64));
            break;
        case 2:
            text.erase(at, random() % 64);
            break;
        default:
            text[at] = static_cast<char>(random());
    }
}

void replay(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    feed(text);
    std::mt19937 random(seed);
    for (int copy = 0; copy < damagedCopies; ++copy) {
        auto damaged = text;
        for (auto wounds = 1 + random() % 3; wounds > 0; --wounds) damage(damaged, random);
        feed(damaged);
    }
}

}

int main(int count, char** arguments) {
    int replayed = 0;
    for (int at = 1; at < count; ++at)
        for (const auto& entry : std::filesystem::directory_iterator(arguments[at])) {
            replay(entry.path());
            ++replayed;
        }
    std::printf("%d seeds\n", replayed);
    return replayed > 0 ? 0 : 1;
}
