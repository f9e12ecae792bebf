#pragma once

#include "app/desktop/libraries/BookScene.h"

#include <QObject>
#include <QThreadPool>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace murbo {

class Editor;

/// Pictures of playbooks, laid over the footage that the session shows. What is at hand comes at once, the
/// rest from a worker, the newest wish first. Main thread only.
class BookPictures : public QObject {
    Q_OBJECT

public:
    static constexpr int steps = 24;   ///< pictures of a playbook from its start to its end
    static constexpr int rest = 10;    ///< the one that stands for all of it
    static constexpr int height = 192; ///< pixels
    static constexpr std::size_t maxKept = 300;

    explicit BookPictures(Editor& editor, QObject* parent = nullptr);
    /// Waits for what is being drawn.
    ~BookPictures() override;

    /// A picture of a playbook. Nothing while it is being drawn; `changed` comes then.
    std::optional<Bitmap> picture(const Book& book, int step);
    bool isBusy() const { return !wished.empty(); }
    /// Looks at what the session shows now; pictures over other footage are dropped.
    void follow();

signals:
    void changed();

private:
    using Wish = std::pair<std::string, int>;

    void finish(int turn, const Wish& wish, std::optional<Bitmap> drawn);

    Editor& editor;
    std::shared_ptr<const BookScene> scene;
    std::map<Wish, std::optional<Bitmap>> kept;
    std::deque<Wish> order; ///< oldest first
    std::set<Wish> wished;
    int turn = 0;
    int priority = 0;
    QThreadPool pool;
};

}
