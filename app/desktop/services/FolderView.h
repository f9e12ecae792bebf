#pragma once

#include <QString>

namespace murbo {

/// The system's view of folders and files.
namespace FolderView {

/// Shows a file in its folder, picked where the file manager can do that. A folder is opened.
void show(const QString& file);
/// Opens a file in the program that the system has for its kind; false where it has none.
bool play(const QString& file);

}

}
