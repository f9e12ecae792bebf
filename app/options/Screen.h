#pragma once

namespace murbo {

/// What windows are shown on.
namespace Screen {

/// Whether this session has one: by its environment, without a connection.
bool isThere();

}

}
