#pragma once

#include "app/editor/commands/WordCorrection.h"

#include <QObject>
#include <vector>

namespace murbo {

class Editor;

/// After a line was corrected: the words that changed and stand elsewhere too, one after the other, to be put
/// right there in one step each.
class CorrectionOffer : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString words READ words NOTIFY changed)

public:
    explicit CorrectionOffer(Editor& session);

    /// What is offered, in words; empty for nothing.
    QString words() const;
    /// A line was corrected: it said `before` and says `now`.
    void corrected(const std::string& before, const std::string& now);

    Q_INVOKABLE void accept();
    Q_INVOKABLE void drop();

signals:
    void changed();

private:
    void next();
    void followHistory();

    Editor& session;
    std::vector<WordCorrection> waiting; ///< the first of them is offered
    int places = 0;                      ///< where that stands
    std::size_t after = 0;               ///< steps of the history that there were at least
};

}
