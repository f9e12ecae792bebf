#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Values.h"
#include "core/playbooks/Book.h"

namespace murbo {

/// The parameters of a playbook as rows, and what is filled in.
namespace ParameterRows {

/// A section and a row for each parameter; nothing for a playbook without. Ids begin with "value.".
InspectorRowList of(const Book& book, const std::optional<Values>& values);

/// Fills in the parameter of a row. No value gives its standard back; where nothing is filled in any more
/// there are no values.
void set(std::optional<Values>& values, const Book& book, const std::string& row, const QVariant& value);

/// Whether a row is one of them.
bool isOne(const std::string& row);

}

}
