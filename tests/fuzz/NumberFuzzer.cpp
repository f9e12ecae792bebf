#include "core/playbooks/Playbook.h"
#include "tests/fuzz/RoundTrip.h"

using namespace murbo;

namespace {

const Values values{{"x", "0.5"},    {"y", "-3e2"}, {"z", "0"},  {"large", "1e308"},
                    {"word", "abc"}, {"empty", ""}, {"ชื่อ", "7"}, {"xx", "2"}};

bool same(std::optional<double> one, std::optional<double> other) {
    return one == other || (one && other && std::isnan(*one) && std::isnan(*other));
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    const auto strict = Playbook::evaluate(text, values, true);
    const auto loose = Playbook::evaluate(text, values, false);
    if (strict) require(same(strict, loose), "a number that all parameters have differs where some may lack");
    if (size < 900) // with blanks still short enough to be read
        require(same(Playbook::evaluate(" " + text + "\t\n", values, true), strict), "blanks count");
    const auto number = Playbook::Num::parse(text);
    if (!number) {
        require(!strict, "a number can be worked out that can't be read");
        return 0;
    }
    if (strict) require(same(number->value(values), strict), "a number's own value is another");
    number->value({});
    return 0;
}
