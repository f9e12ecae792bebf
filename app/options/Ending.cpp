#include "app/options/Ending.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>
#include <typeinfo>

#include <cxxabi.h>

namespace murbo {
namespace {

/// The name of an error's type, without the wrapper that holds the error that it came from.
std::string kind(const std::exception& error) {
    int failed = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(error).name(), nullptr, nullptr, &failed), &std::free);
    if (!name) return typeid(error).name();
    constexpr std::string_view wrapper = "std::_Nested_exception<";
    const std::string_view whole = name.get();
    if (!whole.starts_with(wrapper)) return std::string(whole);
    return std::string(whole.substr(wrapper.size(), whole.size() - wrapper.size() - 1));
}

/// An error's kind and words, with those of the error that it came from.
std::string description(const std::exception& error) {
    auto own = kind(error) + ": " + error.what();
    try {
        std::rethrow_if_nested(error);
    } catch (const std::exception& cause) {
        return own + "; from " + description(cause);
    }
    return own;
}

int report(const std::string& words, const std::string& more) {
    auto text = "error: " + words + "\n";
    if (!more.empty() && std::getenv("MURBO_DEBUG")) text += more + "\n";
    // Where even that can't be written, that is said too.
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) std::fputs(text.c_str(), stderr);
    return 1;
}

}

int Ending::of(const std::function<void()>& work) try {
    work();
    return 0;
} catch (const std::bad_alloc& error) {
    return report("There is not enough memory.", description(error));
} catch (const std::exception& error) {
    return report(error.what(), description(error));
}

int Ending::failure(const std::string& words) {
    return report(words, "");
}

}
