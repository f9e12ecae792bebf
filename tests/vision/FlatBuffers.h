#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

/// Pieces of a FlatBuffer. They point only forward and by distance, so what lies under a table may stand
/// after it.
namespace murbo::FlatBuffers {

template <typename T>
std::string bytes(T number) {
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

inline std::string list(std::size_t count, const std::string& content) {
    return bytes(std::uint32_t(count)) + content;
}

inline std::string text(const std::string& content) {
    return list(content.size(), content);
}

inline std::string numbers(const std::vector<int>& content) {
    std::string result;
    for (const int number : content) result += bytes(std::int32_t(number));
    return list(content.size(), result);
}

inline std::string floats(const std::vector<float>& content) {
    return text({reinterpret_cast<const char*>(content.data()), content.size() * 4});
}

inline std::string tables(const std::vector<std::string>& content) {
    std::string places, behind;
    for (std::size_t i = 0; i < content.size(); ++i) {
        places += bytes(std::uint32_t(4 * (content.size() - i) + behind.size()));
        behind += content[i];
    }
    return list(content.size(), places + behind);
}

/// Each field a number, or what it points to; nothing where it is left out.
inline std::string table(const std::vector<std::variant<std::monostate, int, std::string>>& fields) {
    const std::size_t start = 4 + 4 * fields.size();
    std::string result = bytes(-std::int32_t(start)), behind = bytes(std::uint16_t(4 + 2 * fields.size()));
    behind += bytes(std::uint16_t(start));
    for (std::size_t i = 0; i < fields.size(); ++i)
        behind += bytes(std::uint16_t(fields[i].index() == 0 ? 0 : 4 + 4 * i));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto* under = std::get_if<std::string>(&fields[i]);
        const auto* number = std::get_if<int>(&fields[i]);
        result += bytes(std::uint32_t(under ? start - 4 - 4 * i + behind.size() : number ? *number : 0));
        if (under) behind += *under;
    }
    return result + behind;
}

inline constexpr std::monostate none;

}
