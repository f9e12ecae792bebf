#pragma once

#include <QObject>
#include <map>
#include <string>

namespace murbo {

/// How large the owner has made regions of the window by their splitters, remembered in the settings, each
/// for windows about that wide.
class SplitterSizes : public QObject {
    Q_OBJECT
    Q_PROPERTY(int turn READ turn NOTIFY changed)

public:
    using QObject::QObject;

    int turn() const { return turns; } ///< another number after each change

    /// Points; 0 where the region has its standard size.
    Q_INVOKABLE double size(const QString& region, double windowWidth) const;
    /// While it is dragged: shown, and not remembered yet.
    Q_INVOKABLE void hold(const QString& region, double windowWidth, double size);
    /// 0 puts the standard back.
    Q_INVOKABLE void set(const QString& region, double windowWidth, double size);

    /// The class of widths a window belongs to: "small", "medium", "large".
    static QString classOf(double windowWidth);

signals:
    void changed();

private:
    static std::string key(const QString& region, double windowWidth);

    std::map<std::string, double> held;
    int turns = 0;
};

}
