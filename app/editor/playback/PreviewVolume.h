#pragma once

#include <QObject>

namespace murbo {

class SettingsStore;

/// The one level of all players, kept in the settings. Exports never read it. Main thread only.
class PreviewVolume : public QObject {
    Q_OBJECT
    Q_PROPERTY(double level READ level WRITE setLevel NOTIFY changed)
    Q_PROPERTY(bool muted READ muted WRITE setMuted NOTIFY changed)

public:
    /// That of the user's own settings.
    static PreviewVolume& standard();

    explicit PreviewVolume(SettingsStore& settings);

    double level() const { return loudness; } ///< 0 to 1
    bool muted() const { return silent; }
    /// What players play at: 0 when muted.
    double volume() const { return silent ? 0 : loudness; }

    /// Clamped to 0…1. Holds for this session also where the settings can't be written.
    void setLevel(double level);
    void setMuted(bool muted);

signals:
    void changed();

private:
    SettingsStore& settings;
    double loudness;
    bool silent;
};

}
