#pragma once

#include "app/desktop/access/AccessNode.h"

#include <vector>

class QWindow;

namespace murbo {

/// A window as a screen reader meets it.
namespace AccessTree {

/// All that is visible, each thing before what lies in it.
std::vector<AccessNode> of(QWindow& window);

}

}
