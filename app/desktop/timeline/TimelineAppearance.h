#pragma once

#include <QObject>

namespace murbo {

/// How the timeline's blocks are drawn, to be chosen by the owner and kept in the settings.
class TimelineAppearance : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool names READ names WRITE setNames NOTIFY changed)
    Q_PROPERTY(double filmstrip READ filmstrip WRITE setFilmstrip NOTIFY changed)
    Q_PROPERTY(double waveform READ waveform WRITE setWaveform NOTIFY changed)
    Q_PROPERTY(bool quiet READ quiet WRITE setQuiet NOTIFY changed)
    Q_PROPERTY(double quietLeast READ quietLeast WRITE setQuietLeast NOTIFY changed)

public:
    using QObject::QObject;

    bool names() const;
    double filmstrip() const; ///< points
    double waveform() const;  ///< points
    bool quiet() const;
    double quietLeast() const; ///< seconds
    void setNames(bool on);
    void setFilmstrip(double height);
    void setWaveform(double height);
    void setQuiet(bool on);
    void setQuietLeast(double seconds);

signals:
    void changed();

private:
    template <class T>
    void keep(const char* key, T value);
};

}
