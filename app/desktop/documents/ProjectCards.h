#pragma once

#include <QQuickImageProvider>

namespace murbo {

/// The pictures of projects that are not open: the first frame of the last video. Drawn on the engine's
/// worker; what can't be read has a clear one
/// of one pixel.
class ProjectCards : public QQuickImageProvider {
public:
    ProjectCards();

    /// The address of a package's picture as it is now; another one once the project has changed.
    static QString address(const QString& package);

    QImage requestImage(const QString& id, QSize* size, const QSize& wanted) override;
};

}
