#include "platform/base/Names.h"

#include <algorithm>
#include <memory>
#include <string>

#include <unicode/coll.h>
#include <unicode/sortkey.h>
#include <unicode/ucol.h>

namespace murbo::Names {
namespace {

/// Null where this machine lacks the collation data; names then stand in byte order.
const icu::Collator* collator() {
    static const std::unique_ptr<const icu::Collator> natural = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        if (made) made->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
        return U_SUCCESS(status) ? std::move(made) : nullptr;
    }();
    return natural.get();
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

int compare(std::string_view one, std::string_view other) {
    if (!collator()) return 0;
    UErrorCode status = U_ZERO_ERROR;
    return collator()->compareUTF8(piece(one), piece(other), status);
}

struct NameWithKey {
    icu::CollationKey key; ///< compared byte by byte, far faster than the texts
    std::filesystem::path path;
};

NameWithKey keyed(std::filesystem::path path) {
    NameWithKey made{{}, std::move(path)};
    UErrorCode status = U_ZERO_ERROR;
    if (collator())
        collator()->getCollationKey(icu::UnicodeString::fromUTF8(piece(made.path.native())), made.key,
                                    status);
    return made;
}

bool keyedBefore(const NameWithKey& one, const NameWithKey& other) {
    UErrorCode status = U_ZERO_ERROR;
    const auto order = one.key.compareTo(other.key, status);
    return order != UCOL_EQUAL ? order == UCOL_LESS : one.path.native() < other.path.native();
}

}

bool before(std::string_view one, std::string_view other) {
    const int order = compare(one, other);
    return order != 0 ? order < 0 : one < other;
}

void sort(std::vector<std::filesystem::path>& paths) {
    std::vector<NameWithKey> all;
    all.reserve(paths.size());
    for (auto& path : paths) all.push_back(keyed(std::move(path)));
    std::stable_sort(all.begin(), all.end(), keyedBefore);
    std::transform(all.begin(), all.end(), paths.begin(),
                   [](NameWithKey& one) { return std::move(one.path); });
}

}
