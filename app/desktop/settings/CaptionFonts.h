#pragma once

#include "app/desktop/captions/PresetPictures.h"
#include "app/desktop/settings/SettingsSheet.h"

#include <QStringList>

namespace murbo {

/// The families for letters that a caption's own font lacks, in their order, as the settings show them: each
/// with a specimen drawn the way captions are, and those of this machine that can be added.
class CaptionFonts : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList rows READ rows NOTIFY changed)
    Q_PROPERTY(QStringList others READ others NOTIFY changed)
    Q_PROPERTY(bool watched READ isWatched WRITE setWatched NOTIFY changed)

public:
    explicit CaptionFonts(SettingsSheet& settings);

    QVariantList rows() const;  ///< family, installed, picture: empty until it is drawn
    QStringList others() const; ///< the installed families that are not among them
    bool isWatched() const { return watched; }
    /// Whether anybody looks: only then are specimens drawn.
    void setWatched(bool on);
    bool isBusy() const { return drawn.isBusy(); }

    /// Puts a family last. One that is there, or whose name has a comma, stays away.
    Q_INVOKABLE void add(const QString& family);
    /// Puts the family of a row into another row's place. Rows that are not there do nothing.
    Q_INVOKABLE void move(int from, int to);
    Q_INVOKABLE void remove(int row);

signals:
    void changed();

private:
    QStringList families() const;
    void keep(const QStringList& families);
    void draw();

    SettingsSheet& settings;
    PresetPictures drawn;
    QStringList specimens; ///< the families that were asked for last
    bool watched = false;
};

}
