#pragma once

#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace murbo {

/// One member of a record under its name in JSON.
template <class Owner, class Value>
struct Field {
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

/// Visits the fields of a record: whether values of their types, and `More` after them, initialise it.
template <class T, class Unlisted, class... More>
struct Initialises;
template <class T, class... Unlisted, class... More>
struct Initialises<T, std::tuple<Unlisted...>, More...> {
    template <class... Listed>
    constexpr auto operator()(const Field<T, Listed>&...) const {
        return std::bool_constant < requires {
            T{std::declval<Listed>()..., std::declval<Unlisted>()..., std::declval<More>()...};
        }
        > ();
    }
};

template <class T, class... More>
inline constexpr bool initialises =
    decltype(T::fields(Initialises<T, typename UnlistedOf<T>::Type, More...>()))::value;

}

/// A plain struct whose `fields(visit)` calls `visit` with all its members, in their order. That one list
/// drives reading and writing, so the codec holds it against the struct: the listed types must initialise it,
/// and no member may be left over. (An optional is not made from `Anything` without doubt, hence the second
/// try.)
///
///     static constexpr auto fields(auto visit) {
///         return visit(field("id", &Note::id), field("text", &Note::text));
///     }
template <class T>
concept Record =
    std::is_aggregate_v<T> && detail::initialises<T> && !detail::initialises<T, detail::Anything> &&
    !detail::initialises<T, std::nullopt_t>;

}
