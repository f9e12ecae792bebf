#include "tests/scenarios/Keyboard.h"

#include <cctype>
#include <map>
#include <stdexcept>

namespace murbo {
namespace {

constexpr int fromKernel = 8;

const std::map<std::string, int>& table() {
    static const auto all = [] {
        std::map<std::string, int> keys{
            {"Escape", 1}, {"-", 12},       {"=", 13},    {"Backspace", 14}, {"Tab", 15},    {"[", 26},
            {"]", 27},     {"Return", 28},  {"Ctrl", 29}, {";", 39},         {"'", 40},      {"`", 41},
            {"Shift", 42}, {"\\", 43},      {",", 51},    {".", 52},         {"/", 53},      {"Alt", 56},
            {"Space", 57}, {"Home", 102},   {"Up", 103},  {"Left", 105},     {"Right", 106}, {"End", 107},
            {"Down", 108}, {"Delete", 111}, {"Menu", 127}};
        const std::pair<int, std::string> rows[] = {
            {2, "1234567890"}, {16, "QWERTYUIOP"}, {30, "ASDFGHJKL"}, {44, "ZXCVBNM"}};
        for (const auto& [first, letters] : rows)
            for (std::size_t at = 0; at < letters.size(); ++at)
                keys[std::string(1, letters[at])] = first + static_cast<int>(at);
        for (int at = 1; at <= 10; ++at) keys[std::string("F").append(std::to_string(at))] = 58 + at;
        return keys;
    }();
    return all;
}

}

int Keyboard::code(const std::string& key) {
    const auto found = table().find(key);
    if (found == table().end()) throw std::invalid_argument("there is no key “" + key + "”");
    return found->second + fromKernel;
}

std::vector<int> Keyboard::codes(const std::string& keys) {
    std::vector<int> all;
    std::string rest = keys;
    for (auto plus = rest.find('+'); plus != rest.npos && plus + 1 < rest.size(); plus = rest.find('+')) {
        all.push_back(code(rest.substr(0, plus)));
        rest = rest.substr(plus + 1);
    }
    all.push_back(code(rest));
    return all;
}

std::vector<int> Keyboard::typing(char character) {
    static const std::map<char, char> shifted{{'_', '-'}, {':', ';'}, {'!', '1'}, {'(', '9'},
                                              {')', '0'}, {'+', '='}, {'?', '/'}, {'"', '\''}};
    if (character == ' ') return {code("Space")};
    if (const auto found = shifted.find(character); found != shifted.end())
        return {code("Shift"), code(std::string(1, found->second))};
    const auto upper = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    const auto key = code(std::string(1, upper));
    return std::isupper(static_cast<unsigned char>(character)) ? std::vector{code("Shift"), key}
                                                               : std::vector{key};
}

}
