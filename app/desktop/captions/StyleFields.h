#pragma once

#include "core/model/CaptionStyle.h"

#include <QString>
#include <QVariantList>

namespace murbo {

/// The fields of a caption style as controls: a table that the view puts up one after the other.
namespace StyleFields {

/// For each field its "key", "name", "kind" ("number", "colour", "shade", "flag", "choice", "fonts"), "value"
/// as it is in force, "changed" where `own` says it, and what its kind needs: "from", "to", "step", "unit",
/// "words". A "shade" is a colour that may be none.
QVariantList shown(const CaptionStyle& own, const CaptionStyle& inForce);

/// Gives a field a value of the view's. Whether there is such a field, and it may have that value.
bool set(CaptionStyle& style, const QString& key, const QVariant& value);

/// Leaves a field to the style beneath.
void clear(CaptionStyle& style, const QString& key);

}

}
