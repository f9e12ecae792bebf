#pragma once

#include "core/playbooks/Playbook.h"
#include "platform/base/Codec.h"

namespace murbo::Codec {

/// A number is a number or a text in JSON; it writes back what it read.
template <>
Playbook::Num read<Playbook::Num>(const JsonValue& value);
template <>
void write<Playbook::Num>(JsonWriter& writer, const Playbook::Num& num);

}
