#pragma once

#include <QString>
#include <QStringList>

namespace murbo {

/// What a file is by its ending alone, in either case. Movies are known to the intake.
namespace MediaEndings {

/// The endings themselves, in lower case and without their dot.
QStringList pictures();
QStringList sounds();
QStringList markers();

bool isPicture(const QString& path);
bool isSound(const QString& path);
bool isMarkers(const QString& path);
bool isPlaybook(const QString& path);

}

}
