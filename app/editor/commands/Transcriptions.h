#pragma once

#include "app/editor/commands/SourceStretch.h"

#include <QObject>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

class Editor;

/// How a session's stretches fare that are transcribed: which one is listened to, and why the last try of
/// others failed. Nothing of it is kept on disk. Main thread only.
class Transcriptions : public QObject {
    Q_OBJECT

public:
    struct Failure {
        SourceStretch stretch;
        bool paid = false;
        std::string words; ///< for the owner
    };

    /// Those of a session; they end with it.
    static Transcriptions& of(Editor& editor);

    bool isHearing(const UUID& source, const Stretch& range) const;
    /// Why the last try failed; null where none did.
    const Failure* failure(const UUID& source, const Stretch& range) const;

    /// A try begins: how the one before ended no longer counts.
    void begin(const SourceStretch& stretch);
    /// The try ends, for the reason given where it failed.
    void end(const std::optional<Failure>& failure = {});

signals:
    void changed();

private:
    explicit Transcriptions(Editor& editor);

    std::optional<SourceStretch> heard;
    std::vector<Failure> failed;
};

}
