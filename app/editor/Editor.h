#pragma once

#include "app/editor/Background.h"
#include "app/editor/EditorFields.h"
#include "app/editor/Work.h"
#include "app/editor/playback/Playback.h"
#include "core/intake/samples/Loudness.h"
#include "core/model/Project.h"
#include "core/model/package/History.h"

#include <QTimer>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include <qcorotask.h>

namespace murbo {

class Filmstrip;
class Said;
class SaidCache;

/// The live session of one open project: the project with its undo, what is held and picked, two players and
/// a queue of work. Main thread only; it draws, decodes and waits for nothing itself.
///
/// Every change of the project, whoever makes it, goes through `change`, `apply` or a drag. Each keeps the
/// project as it stood, and the step, the save and what the player must redo follow from comparing the two.
/// The commands stand in app/editor/commands.
class Editor : public EditorFields {
    Q_OBJECT

public:
    using Save = std::function<void(const Project&)>;
    using Change = std::function<void(Project&)>;

    static constexpr int settlingTime = 700; ///< ms after the last step of a drag at which it is a step
    static constexpr int historyTime = 1000; ///< ms after the last change at which the history is written

    /// `save` is called after every change, with the project to write; it must not throw. Without a package
    /// the history starts empty and is not kept. Without `sound` the players are silent.
    Editor(Project project, std::set<UUID> missing, std::optional<std::filesystem::path> package, Save save,
           const SoundPlayer::MakeOutput& sound = {}, QObject* parent = nullptr);
    ~Editor() override;

    const Project& project() const { return live; }
    const History& history() const { return steps; }
    const std::optional<std::filesystem::path>& package() const { return folder; }
    const Video* video() const;               ///< the open one, or null
    const Video* video(const UUID& id) const; ///< or null
    const Clip* clip(const UUID& id) const;   ///< or null
    const Clip* held() const;                 ///< the held clip, or null
    std::string title(const Clip& clip) const;

    // ---- changes ----

    /// One finished change: ends an open drag, lets `body` mutate the project, and makes it an undo step of
    /// that name. A body that changes nothing leaves no trace; nor does one that throws.
    void change(const std::string& name, const Change& body);
    /// A change that is no step of its own: what a task found out. It survives a drag or group that is open.
    void apply(const Change& body);
    /// Runs other commands as one step. Within a group it just runs them.
    void group(const std::string& name, const std::function<void()>& body);

    /// Opens a drag: changes in small pieces that end as one step. The first call of a drag counts.
    void beginDrag(const std::optional<std::string>& name);
    /// A piece of a drag that nothing but the picture follows: no save, no step.
    void dragPiece(const Change& body);
    /// The same, with the picture drawn anew, and what sounds otherwise heard.
    void dragAndRedraw(const Change& body);
    /// Makes the drag a step once it has been still for the settling time.
    void endDragSoon(const std::string& name);
    /// Makes an open drag a step now, under its own name or another. Whether there was one.
    bool closeDrag(const std::optional<std::string>& name = std::nullopt);
    /// Lets go of an open drag: the project is what it was when the drag began.
    void cancelDrag();
    /// The name of the open drag.
    std::optional<std::string> unfinished() const;

    void undo() { step(true); }
    void redo() { step(false); }
    /// Writes the history now, and waits for it.
    void writeHistory();

    // ---- what is shown ----

    /// Opens a video on the timeline from its start, with nothing picked; none closes it.
    void openOnTimeline(const std::optional<UUID>& video);
    /// Holds a clip or a source on the source player, from its start; none lets go.
    void holdClip(const std::optional<UUID>& clip);
    void holdSource(const std::optional<UUID>& source);
    /// Holds a clip and leaves the source player where it is.
    void holdClipHere(const UUID& clip);
    void setMonitoring(const Monitoring& monitoring);
    void setMissing(std::set<UUID> missing) {
        set(values.missing, std::move(missing), &EditorFields::missingChanged);
    }

    /// Has the video's player play the open video as it is now. `at` is where it then stands; none keeps its
    /// place. With `remixing` the picture goes on where it can. `then` runs once it is there; what was asked
    /// for before and comes later is dropped.
    void reloadVideo(std::optional<double> at, bool remixing = false, std::function<void()> then = {});
    /// Hands the video's player a new plan: nothing is rebuilt.
    void redraw();

    bool exists(const Pick& pick) const;

    /// All that is said and noted, by its tags: worked out when it is asked for, and kept for all who ask
    /// until the project says something else.
    std::shared_ptr<const Said> allSaid() const;

    /// How loud a source is, once that is known; asking for it has it measured.
    const Loudness* loudness(const UUID& source);
    /// A source's thumbnails, made on demand; null for no source.
    Filmstrip* filmstrip(const UUID& source);

    /// Says something to the owner: the toast. `refuse` beeps as well.
    void say(const std::string& text);
    void refuse(const std::string& text);

    // ---- long work ----

    /// Held by whatever a command has set off and has not ended.
    using Busy = std::shared_ptr<void>;
    Busy busy();
    bool isBusy() const { return busyCount > 0; }

    Playback playback; ///< the video's player
    Playback source;   ///< the source player
    Background background;
    Work work;

    /// The way of asking the owner whether to go on: title, text, the button's word. Without one it is yes.
    std::function<QCoro::Task<bool>(std::string, std::string, std::string)> confirm;

signals:
    void projectChanged();
    void historyChanged();
    void loudnessChanged();
    /// A step was made, by a command or by a drag that came to rest.
    void stepMade(const QString& name, bool byTimer);
    void said(const QString& text);
    void beeped();
    /// What is held could not be opened, and why.
    void sourceFailed(const murbo::UUID& source, const QString& words);
    void copied(const QString& text); ///< to go to the clipboard
    void idle();                      ///< nothing is busy any more

private:
    void commit(const std::string& name, const Project& old);
    void changed(const Project& old);
    void keepPicksValid();
    void followWithPlayer(const Project& old);
    void step(bool back);
    std::optional<std::string> takeStep(bool back);
    void settle();
    void writeHistoryAside();
    void openSource(bool keepingTime);
    QCoro::Task<> reload(std::optional<double> at, bool remixing, std::function<void()> then);
    QCoro::Task<> hearDrag();
    QCoro::Task<> loadSource(Source shown, Stretch span, bool keepingTime);
    QCoro::Task<> measure(Source measured);

    Project live;
    History steps;
    std::optional<std::filesystem::path> folder;
    Save save;

    std::optional<Project> dragStart;
    std::string dragName;
    std::optional<Project> groupStart;
    QTimer settling;
    std::string settlingName;
    QTimer historyWrite;
    Background historyWriting;   ///< apart, so that the last write waits for nothing else
    bool writingHistory = false; ///< on a thread
    bool inSettling = false;     ///< a drag comes to rest by itself

    int busyCount = 0;
    std::int64_t lastReload = 0;  ///< asked for
    std::int64_t shownReload = 0; ///< loaded or dropped up to here
    bool mixing = false;          ///< what a drag sounds like
    bool mixAgain = false;
    std::int64_t lastSource = 0;
    std::map<UUID, Loudness> loudnessBySource;
    std::set<UUID> measuring;
    std::stop_source ending; ///< of what is measured
    std::map<UUID, std::unique_ptr<Filmstrip>> filmstrips;
    std::unique_ptr<SaidCache> saidCache;
};

}
