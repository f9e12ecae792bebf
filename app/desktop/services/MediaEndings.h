#pragma once

#include <QString>

namespace murbo {

/// What a file is by its ending alone, in either case. Movies are known to the intake.
namespace MediaEndings {

bool isPicture(const QString& path);
bool isSound(const QString& path);
bool isPlaybook(const QString& path);

}

}
