#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Writes a JSON text in UTF-8 from first to last. The same values in the same order are the same bytes. What
/// would be too much to be read again is a Problem.
class JsonWriter {
public:
    enum class Layout {
        pretty, ///< a line a value, two blanks a level, a line break at the end
        compact
    };
    explicit JsonWriter(Layout chosen) : layout(chosen) {}

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }

    /// Before each member of an object. The text must outlive the writing of the member.
    void key(std::string_view name);

    void null() { raw("null"); }
    void boolean(bool value) { raw(value ? "true" : "false"); }
    void integer(std::int64_t value);
    /// The shortest digits that give the number back. Throws a Problem where it is not finite.
    void number(double value);
    /// Throws a Problem where the text is not UTF-8: no reader would take the file.
    void text(std::string_view value);

    /// The whole text.
    std::string finish();

private:
    struct Level {
        bool isObject;
        std::size_t count = 0;
        std::string_view key{};
    };

    void open(char bracket);
    void close(char bracket);
    void beforeValue();
    void newLine();
    void raw(std::string_view value);
    void quoted(std::string_view value);
    [[noreturn]] void fail(std::string_view what) const;

    Layout layout;
    std::string out;
    std::vector<Level> levels;
    std::size_t values = 0; ///< at least as many as a reader counts
};

}
