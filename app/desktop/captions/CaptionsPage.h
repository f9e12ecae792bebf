#pragma once

#include "app/desktop/captions/CaptionList.h"
#include "app/desktop/captions/PresetPictures.h"
#include "app/desktop/captions/PresetRow.h"

#include <QTimer>

namespace murbo {

/// How the captions of the open video look, or of the whole project, as the tab of captions shows it.
class CaptionsPage : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool hasVideo READ hasVideo NOTIFY changed)
    Q_PROPERTY(bool on READ isOn WRITE setOn NOTIFY changed)
    Q_PROPERTY(bool ofProject READ isOfProject WRITE setOfProject NOTIFY changed)
    Q_PROPERTY(QVariantList fields READ fields NOTIFY changed)
    Q_PROPERTY(QVariantList saved READ saved NOTIFY changed)
    Q_PROPERTY(QAbstractItemModel* presets READ presets CONSTANT)
    Q_PROPERTY(murbo::CaptionList* list READ list CONSTANT)
    Q_PROPERTY(bool watched READ isWatched WRITE setWatched NOTIFY changed)

public:
    explicit CaptionsPage(Editor& session);
    ~CaptionsPage() override;

    bool hasVideo() const;
    bool isOn() const; ///< captions are shown in the open video
    void setOn(bool on);
    bool isOfProject() const { return project; } ///< else the open video's look is changed
    void setOfProject(bool whole);
    /// What `StyleFields` shows of the style in force.
    QVariantList fields() const;
    QVariantList saved() const; ///< the presets that somebody saved: name, and the row of their card
    QAbstractItemModel* presets() { return &cards; }
    CaptionList* list() { return &captions; }
    bool isWatched() const { return captions.isWatched(); }
    /// Whether anybody looks: only then are pictures drawn.
    void setWatched(bool on);
    const PresetPictures& pictures() const { return drawn; }
    bool isBusy() const { return drawing.isActive() || drawn.isBusy(); }

    /// A finished change of a field; one of a slider that becomes a step once it is still; and back to what
    /// the preset says.
    Q_INVOKABLE void set(const QString& key, const QVariant& value);
    Q_INVOKABLE void settle(const QString& key, const QVariant& value);
    Q_INVOKABLE void reset(const QString& key);
    Q_INVOKABLE void pickPreset(const QString& name);
    Q_INVOKABLE void pickPresetAt(int row);
    /// Saves the style in force under a name, in project and library. Whether it could be.
    Q_INVOKABLE bool savePreset(const QString& name);
    /// The preset that the next rename or removal is for, by its card; -1 is the one in force. Its name.
    Q_INVOKABLE QString meanPreset(int row);
    Q_INVOKABLE QString meantPreset() const;
    Q_INVOKABLE void renamePreset(const QString& name);
    Q_INVOKABLE void removePreset();
    /// The words of a caption by its line and its piece, -1 for none, as they are edited in its place.
    Q_INVOKABLE QString words(const QString& line, int piece) const;
    Q_INVOKABLE void retext(const QString& line, int piece, const QString& words);
    /// The same, and breaks the caption at a place of these words.
    Q_INVOKABLE void breakAt(const QString& line, int piece, const QString& words, int place);
    /// Pixels of a card's picture.
    Q_INVOKABLE void setCardSize(int width, int height);

signals:
    void changed();

private:
    void refresh();
    void draw();
    void assignCards();
    std::vector<CaptionStyle> styles() const;
    CaptionStyle own() const;
    CaptionStyle inForce() const;
    CaptionStyle resolved(const CaptionStyle& preset) const;
    std::string chosen() const;

    Editor& session;
    bool project = false;
    std::string meant; ///< id of a preset; empty for the one in force
    CaptionList captions;
    PresetPictures drawn;
    Rows<PresetRow> cards;
    QTimer drawing;
    QSize cardSize{280, 168};
};

}
