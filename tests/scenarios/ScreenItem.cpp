#include "tests/scenarios/ScreenItem.h"

#include "platform/base/Json.h"

namespace murbo {
namespace {

ScreenItem item(const JsonValue& from) {
    const auto place = *from.member("place");
    ScreenItem made;
    made.depth = static_cast<int>(from.member("depth")->integer());
    made.role = from.member("role")->text();
    made.name = from.member("name")->text();
    made.description = from.member("description")->text();
    made.value = from.member("value")->text();
    made.x = place.element(0).number();
    made.y = place.element(1).number();
    made.width = place.element(2).number();
    made.height = place.element(3).number();
    made.focusable = from.member("focusable")->boolean();
    made.focused = from.member("focused")->boolean();
    made.enabled = from.member("enabled")->boolean();
    made.checked = from.member("checked")->boolean();
    made.selected = from.member("selected")->boolean();
    return made;
}

}

std::vector<ScreenItem> ScreenItem::all(const JsonValue& list) {
    std::vector<ScreenItem> items;
    for (std::size_t at = 0; at < list.size(); ++at) items.push_back(item(list.element(at)));
    return items;
}

}
