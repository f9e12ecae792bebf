#pragma once

#include <cstddef>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace murbo {

/// One member of a record under its name in JSON.
template <class Owner, class Value>
struct Field {
    using Type = Value;
    const char* name;
    Value Owner::*member;
};

template <class Owner, class Value>
constexpr Field<Owner, Value> field(const char* name, Value Owner::*member) {
    return {name, member};
}

namespace detail {

struct Anything {
    template <class T>
    operator T() const;
};

/// Members that do not travel with the record, declared after all that do: `using Unlisted = std::tuple<…>`.
template <class T>
struct UnlistedOf {
    using Type = std::tuple<>;
};
template <class T>
requires requires {
    typename T::Unlisted;
}
struct UnlistedOf<T> {
    using Type = typename T::Unlisted;
};

template <class T, class Listed, class Unlisted, class... More>
struct Initialises;
template <class T, class... Listed, class... Unlisted, class... More>
struct Initialises<T, std::tuple<Listed...>, std::tuple<Unlisted...>, More...> {
    static constexpr bool value = requires {
        T{std::declval<typename Listed::Type>()..., std::declval<Unlisted>()..., std::declval<More>()...};
    };
};

template <class T, class... More>
inline constexpr bool initialises =
    Initialises<T, std::remove_cvref_t<decltype(T::fields())>, typename UnlistedOf<T>::Type, More...>::value;

}

/// A plain struct whose `fields()` names its members, all of them and in their order. That one list drives
/// reading and writing, so it is held against the struct here: the listed types must initialise it, and no
/// member may be left over. (An optional is not made from `Anything` without doubt, hence the second try.)
template <class T>
concept Record =
    std::is_aggregate_v<T> && detail::initialises<T> && !detail::initialises<T, detail::Anything> &&
    !detail::initialises<T, std::nullopt_t>;

}
