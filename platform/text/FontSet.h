#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct _FcCharSet;
struct _FcConfig;
struct _FcPattern;

namespace murbo {

/// The families found on this machine, under a Fontconfig configuration of our own: which font a letter gets
/// must not depend on the rules of the system it is drawn on. Only for this room. Read only once made.
class FontSet {
public:
    struct Family {
        std::string name;
        std::vector<_FcPattern*> faces;
        bool colour = false;

        /// The letters of its face nearest to a weight of 100 to 1000; null where it names none.
        const _FcCharSet* letters(int weight) const;
    };

    static const FontSet& shared();

    _FcConfig* config() const { return configuration; }
    const std::map<std::string, Family>& families() const { return byName; }
    const Family* find(std::string_view name) const;

    // Own names, so that no installed font of a like name takes their place.
    static constexpr const char* rounded = "Murbo Rounded";
    static constexpr const char* roundedThai = "Murbo Rounded Thai";
    static constexpr const char* roundedJapanese = "Murbo Rounded Japanese";

private:
    FontSet();
    void addOwn(const std::string& file);
    void index(int set); // an FcSetName

    _FcConfig* configuration = nullptr;
    std::map<std::string, Family> byName; ///< by lower-case name
};

}
