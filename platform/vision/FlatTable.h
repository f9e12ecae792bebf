#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace murbo {

/// A table in a FlatBuffer (its format: flatbuffers.dev, "Internals"). The bytes are not trusted: each offset
/// is checked before it is followed, and what leads outside throws Problem. A field that the table leaves out
/// has its default. The bytes must outlive the table.
class FlatTable {
public:
    /// The outermost table.
    static FlatTable root(std::string_view bytes);

    int byte(int field, int otherwise = 0) const;
    int number(int field, int otherwise = 0) const;
    /// A vector of bytes, or a string.
    std::string_view bytes(int field) const;
    /// A vector of 32-bit numbers; throws where there are more than `max`.
    std::vector<int> numbers(int field, std::size_t max) const;
    std::optional<FlatTable> table(int field) const;
    /// A vector of tables; throws where there are more than `max`.
    std::vector<FlatTable> tables(int field, std::size_t max) const;

private:
    struct Vector {
        std::size_t at = 0;
        std::size_t count = 0;
    };

    FlatTable(std::string_view bytes, std::size_t at);
    std::optional<std::size_t> place(int field) const;
    Vector vector(int field, std::size_t elementBytes, std::size_t max) const;

    std::string_view all;
    std::size_t start = 0;
    std::size_t fields = 0; ///< where the places of the fields are listed
    std::size_t count = 0;
};

}
