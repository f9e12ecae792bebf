#include "platform/base/Dates.h"

#include <fmt/format.h>

namespace murbo {
namespace {

using namespace std::chrono;

/// The whole years that a Date can count: it has nanoseconds in 64 bits, and others would come out as them.
constexpr year firstYear{1678}, lastYear{2261};

/// Takes a text apart from left to right; once something is amiss, all that follows is.
class Cursor {
public:
    explicit Cursor(std::string_view text) : rest(text) {}

    int digits(std::size_t count) {
        int value = 0;
        if (rest.size() < count) return fail();
        for (std::size_t at = 0; at < count; ++at) {
            if (rest[at] < '0' || rest[at] > '9') return fail();
            value = value * 10 + (rest[at] - '0');
        }
        rest.remove_prefix(count);
        return value;
    }

    bool take(char wanted) {
        if (!rest.starts_with(wanted)) return false;
        rest.remove_prefix(1);
        return true;
    }
    void need(char wanted) {
        if (!take(wanted)) fail();
    }
    bool atDigit() const { return !rest.empty() && rest[0] >= '0' && rest[0] <= '9'; }
    bool atEnd() const { return sound && rest.empty(); }

private:
    int fail() {
        sound = false;
        return 0;
    }
    std::string_view rest;
    bool sound = true;
};

microseconds fraction(Cursor& cursor) {
    microseconds sum{0};
    if (!cursor.take('.')) return sum;
    for (std::int64_t unit = 100'000; cursor.atDigit(); unit /= 10)
        sum += microseconds(unit * cursor.digits(1));
    return sum;
}

minutes offset(Cursor& cursor) {
    if (cursor.take('Z')) return minutes(0);
    const int sign = cursor.take('-') ? -1 : 1;
    if (sign > 0) cursor.need('+');
    const auto hour = cursor.digits(2);
    cursor.take(':');
    return sign * (hours(hour) + minutes(cursor.digits(2)));
}

}

std::string Dates::text(Date date) {
    const auto second = floor<seconds>(date);
    const auto day = floor<days>(second);
    const year_month_day calendar(day);
    const hh_mm_ss clock(second - day);
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(calendar.year()),
                       static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                       clock.hours().count(), clock.minutes().count(), clock.seconds().count());
}

std::optional<Date> Dates::parse(std::string_view text) {
    Cursor cursor(text);
    const year year(cursor.digits(4));
    cursor.need('-');
    const month month(static_cast<unsigned>(cursor.digits(2)));
    cursor.need('-');
    const day day(static_cast<unsigned>(cursor.digits(2)));
    cursor.need('T');
    const int hour = cursor.digits(2);
    cursor.need(':');
    const int minute = cursor.digits(2);
    cursor.need(':');
    const int second = cursor.digits(2);
    const auto part = fraction(cursor);
    const auto away = offset(cursor);
    const year_month_day calendar(year, month, day);
    if (!cursor.atEnd() || !calendar.ok() || hour > 23 || minute > 59 || second > 60) return std::nullopt;
    if (year < firstYear || year > lastYear) return std::nullopt;
    return sys_days(calendar) + hours(hour) + minutes(minute) + seconds(second) + part - away;
}

}
