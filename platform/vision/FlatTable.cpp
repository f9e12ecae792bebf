#include "platform/vision/FlatTable.h"

#include "platform/base/Problem.h"

#include <cstring>

namespace murbo {

namespace {

template <typename T>
T read(std::string_view bytes, std::size_t at) {
    if (at > bytes.size() || bytes.size() - at < sizeof(T)) throw Problem("The file leads outside itself.");
    T value;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

/// Where the offset that stands at `at` leads.
std::size_t followed(std::string_view bytes, std::size_t at) {
    return at + read<std::uint32_t>(bytes, at);
}

}

FlatTable FlatTable::root(std::string_view bytes) {
    return {bytes, followed(bytes, 0)};
}

FlatTable::FlatTable(std::string_view bytes, std::size_t at) : all(bytes), start(at) {
    const auto list = std::int64_t(start) - read<std::int32_t>(all, start);
    if (list < 0) throw Problem("The file leads outside itself.");
    const auto listBytes = read<std::uint16_t>(all, std::size_t(list));
    fields = std::size_t(list) + 4;
    count = listBytes < 4 ? 0 : (listBytes - 4) / 2;
}

std::optional<std::size_t> FlatTable::place(int field) const {
    if (std::size_t(field) >= count) return {};
    const auto offset = read<std::uint16_t>(all, fields + 2 * std::size_t(field));
    return offset ? std::optional(start + offset) : std::nullopt;
}

int FlatTable::byte(int field, int otherwise) const {
    const auto at = place(field);
    return at ? read<std::uint8_t>(all, *at) : otherwise;
}

int FlatTable::number(int field, int otherwise) const {
    const auto at = place(field);
    return at ? read<std::int32_t>(all, *at) : otherwise;
}

FlatTable::Vector FlatTable::vector(int field, std::size_t elementBytes, std::size_t max) const {
    const auto at = place(field);
    if (!at) return {};
    const std::size_t head = followed(all, *at);
    const Vector found{head + 4, read<std::uint32_t>(all, head)};
    if (found.count > (all.size() - found.at) / elementBytes) throw Problem("The file leads outside itself.");
    if (found.count > max) throw Problem("The file lists more than it may.");
    return found;
}

std::string_view FlatTable::bytes(int field) const {
    const Vector found = vector(field, 1, all.size());
    return all.substr(found.at, found.count);
}

std::vector<int> FlatTable::numbers(int field, std::size_t max) const {
    const Vector found = vector(field, 4, max);
    std::vector<int> result;
    for (std::size_t i = 0; i < found.count; ++i) result.push_back(read<std::int32_t>(all, found.at + 4 * i));
    return result;
}

std::optional<FlatTable> FlatTable::table(int field) const {
    const auto at = place(field);
    if (!at) return {};
    return FlatTable(all, followed(all, *at));
}

std::vector<FlatTable> FlatTable::tables(int field, std::size_t max) const {
    const Vector found = vector(field, 4, max);
    std::vector<FlatTable> result;
    for (std::size_t i = 0; i < found.count; ++i)
        result.push_back(FlatTable(all, followed(all, found.at + 4 * i)));
    return result;
}

}
