#pragma once

#include "app/desktop/drawn/GeneratedCard.h"
#include "platform/base/UUID.h"
#include "platform/image/Bitmap.h"

#include <QObject>
#include <QThreadPool>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
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
    using Cards = std::function<std::optional<GeneratedCard>(const UUID& cut)>;

    /// Without `cards` generated cuts have no picture.
    FootagePictures(Strips strips, Levels levels, Cards cards = {});
    /// Waits for what is being made.
    ~FootagePictures() override;

    /// The still of that second of a source; of a generated cut the one of its card's number, which is below
    /// 0. Nothing while it is being made; `changed` comes then.
    std::optional<Bitmap> still(const UUID& source, int second);
    /// The picture of a picture or video file that lies over the footage; nothing while it is being read.
    std::optional<Bitmap> ofFile(const std::filesystem::path& file);
    /// How loud a source is; null until it is known.
    const Loudness* loudness(const UUID& source);
    /// How loud a file of sound is; null while it is being listened to.
    const Loudness* loudnessOf(const std::filesystem::path& file);
    /// Whether something that was asked for is still being made.
    bool isBusy();

signals:
    void changed();

private:
    using Wish = std::pair<UUID, int>;

    std::optional<Bitmap> card(const Wish& wish);
    void finish(const Wish& wish, bool found);
    void keep(const std::filesystem::path& file, std::optional<Bitmap> read);

    Strips strips;
    Levels levels;
    Cards cards;
    QThreadPool pool;
    std::set<Wish> wished;
    std::set<Wish> failed;
    std::map<Wish, Bitmap> drawn; ///< generated cuts
    std::set<UUID> listened;      ///< sources of which nobody knows yet how loud they are
    std::map<std::filesystem::path, std::optional<Bitmap>> files;            ///< read, or being read
    std::map<std::filesystem::path, std::shared_ptr<const Loudness>> sounds; ///< null while listening
    int order = 0;
};

}
