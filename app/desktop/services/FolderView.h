#pragma once

#include <QString>

namespace murbo {

/// The system's view of folders.
namespace FolderView {

/// Shows a file in its folder, picked where the file manager can do that. A folder is opened.
void show(const QString& file);

}

}
