#pragma once

#include "app/editor/Background.h"

#include <QObject>
#include <QString>
#include <filesystem>
#include <stop_token>

namespace murbo {

class Editor;

/// Save As and Duplicate: a copy of the whole project under another name, never over what is there. Main
/// thread only; the copying goes on beside it.
class CopySheet : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER name NOTIFY changed)
    Q_PROPERTY(QString folder MEMBER folder NOTIFY changed)
    Q_PROPERTY(bool busy READ busy NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)

public:
    explicit CopySheet(Editor& editor, QObject* parent = nullptr);
    /// Stops what is being copied; nothing half-made stays.
    ~CopySheet() override;

    bool busy() const { return copying; }
    QString problem() const { return words; } ///< why the last copy could not be made; empty where it was

    /// Fills the form with a name that is free, beside the project.
    Q_INVOKABLE void fill();
    /// Copies; `made` comes after it. With `instead` the copy is to take the open project's place.
    Q_INVOKABLE void start(bool instead);
    Q_INVOKABLE void stop() { stopping.request_stop(); }

signals:
    void changed();
    void made(const QString& path, bool instead);

private:
    void end(const QString& path, bool instead, const QString& problem);

    Editor& editor;
    QString name;
    QString folder;
    QString words;
    bool copying = false;
    std::stop_source stopping;
    Background background;
};

}
