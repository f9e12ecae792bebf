#pragma once

#include <QObject>
#include <QVariantList>

namespace murbo {

/// What the settings sheet shows and changes: switches, sizes and texts by their keys, and which key gives
/// which command.
class SettingsSheet : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList keys READ keys NOTIFY changed)
    Q_PROPERTY(QString search MEMBER search NOTIFY changed)
    Q_PROPERTY(QString moved READ moved NOTIFY changed)
    Q_PROPERTY(QString languageName READ languageName NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)

public:
    using QObject::QObject;

    /// A switch, a number or a text of the settings, its standard where it is not set. Only those that the
    /// sheet shows have one.
    Q_INVOKABLE bool isOn(const QString& key) const;
    Q_INVOKABLE double number(const QString& key) const;
    Q_INVOKABLE QString text(const QString& key) const;
    Q_INVOKABLE void setOn(const QString& key, bool on);
    /// Brought into the range that makes sense.
    Q_INVOKABLE void setNumber(const QString& key, double value);
    /// Without the blanks round it; an empty one is the standard again. A language may be given by its name.
    Q_INVOKABLE void setText(const QString& key, const QString& value);

    QString languageName() const; ///< of the language set, in words

    QVariantList keys() const; ///< command, title, key: those whose title or key holds what is searched
    Q_INVOKABLE QString keyOf(const QString& command) const; ///< as people read it
    /// Gives a command a key as it was typed; what had it takes the command's own. False where it is no key
    /// that a command can have.
    Q_INVOKABLE bool bind(const QString& command, const QString& typed);
    Q_INVOKABLE void useStandardKeys();
    QString moved() const { return words; } ///< what the last change of a key moved

    QString problem() const { return fault; } ///< why the last change could not be kept; empty where it was

signals:
    void changed();

private:
    template <class Change>
    bool keep(Change change);

    QString words;
    QString search;
    QString fault;
};

}
