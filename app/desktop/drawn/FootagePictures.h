#pragma once

#include "platform/base/UUID.h"
#include "platform/image/Bitmap.h"

#include <QObject>
#include <QThreadPool>
#include <functional>
#include <optional>
#include <set>
#include <utility>

namespace murbo {

class Filmstrip;
struct Loudness;

/// What views show of the footage: stills and loudness. What is at hand comes at once, the rest from a
/// worker, the newest wish first. Main thread only.
class FootagePictures : public QObject {
    Q_OBJECT

public:
    using Strips = std::function<Filmstrip*(const UUID& source)>;
    using Levels = std::function<const Loudness*(const UUID& source)>;

    FootagePictures(Strips strips, Levels levels);
    /// Waits for what is being made.
    ~FootagePictures() override;

    /// The still of that second of a source. Nothing while it is being made; `changed` comes then.
    std::optional<Bitmap> still(const UUID& source, int second);
    /// How loud a source is; null until it is known.
    const Loudness* loudness(const UUID& source) { return levels(source); }
    /// Wishes that nobody waits for any more.
    void forget();

signals:
    void changed();

private:
    using Wish = std::pair<UUID, int>;

    void finish(const Wish& wish, bool found);

    Strips strips;
    Levels levels;
    QThreadPool pool;
    std::set<Wish> wished;
    std::set<Wish> failed;
    int order = 0;
};

}
