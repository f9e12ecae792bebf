#include "app/desktop/inspector/InspectorRow.h"

namespace murbo {
namespace {

enum InspectorRole { controlRole = Qt::UserRole, rowRole };

QString word(InspectorRow::Control control) {
    static constexpr const char* words[] = {"section", "words",   "text",    "lines",  "number",
                                            "time",    "choice",  "toggle",  "colour", "media",
                                            "button",  "layouts", "picture", "wave"};
    return words[static_cast<int>(control)];
}

}

QHash<int, QByteArray> InspectorRow::roles() {
    return {{controlRole, "control"}, {rowRole, "row"}};
}

QVariant InspectorRow::value(int role) const {
    if (role == controlRole) return word(control);
    return QVariantMap{{"id", QString::fromStdString(id)},
                       {"section", QString::fromStdString(section)},
                       {"name", name},
                       {"current", current},
                       {"changed", changed},
                       {"mixed", mixed},
                       {"from", from},
                       {"to", to},
                       {"step", step},
                       {"unit", unit},
                       {"options", options}};
}

}
