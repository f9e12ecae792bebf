#include "app/editor/speaker/Speaker.h"

#include "app/editor/playback/PlayerClock.h"
#include "platform/media/SoundReader.h"

#include <QAudioDevice>
#include <QAudioSink>
#include <QMediaDevices>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <mutex>
#include <optional>
#include <vector>

namespace murbo {
namespace {

constexpr int bufferMilliseconds = 80; // what lies between mixing and ear
constexpr int pumpMilliseconds = 10;
constexpr int bytesAFrame = Sound::channels * static_cast<int>(sizeof(float));

QAudioFormat format() {
    QAudioFormat wanted;
    wanted.setSampleRate(Sound::rate);
    wanted.setChannelCount(Sound::channels);
    wanted.setSampleFormat(QAudioFormat::Float);
    return wanted;
}

double seconds(qint64 bytes) {
    return static_cast<double>(bytes) / (static_cast<double>(Sound::rate) * bytesAFrame);
}

}

/// What lives on the device's own thread, which has an event loop, as Qt's sinks ask for one.
struct Speaker::Device {
    QThread thread;
    QObject there; ///< calls are made on its thread
    std::unique_ptr<QAudioSink> sink;
    std::unique_ptr<QTimer> timer;
    QIODevice* into = nullptr;
    Fill fill;
    std::vector<float> block;
    qint64 written = 0; ///< bytes

    std::mutex lock; ///< guards what follows
    bool runs = false;
    double known = 0;    ///< seconds heard when last looked
    double looked = 0;   ///< the computer's time then
    double possible = 0; ///< seconds that have been written
    double answered = 0; ///< the most that was answered

    Device() {
        there.moveToThread(&thread);
        thread.start();
    }
    ~Device() {
        thread.quit();
        thread.wait();
    }

    template <class Work>
    void callThere(Work work) {
        QMetaObject::invokeMethod(&there, work, Qt::BlockingQueuedConnection);
    }

    bool begin() {
        const auto output = QMediaDevices::defaultAudioOutput();
        if (output.isNull() || !output.isFormatSupported(format())) return false;
        sink = std::make_unique<QAudioSink>(output, format());
        sink->setBufferSize(format().bytesForDuration(1000 * bufferMilliseconds));
        into = sink->start();
        if (!into || sink->error() != QAudio::NoError) {
            end();
            return false;
        }
        written = 0;
        timer = std::make_unique<QTimer>();
        timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(timer.get(), &QTimer::timeout, &there, [this] { pump(); });
        timer->start(pumpMilliseconds);
        pump();
        return true;
    }

    /// Writes as much as the device takes, and notes how much of it has been heard.
    void pump() {
        const qint64 room = sink->bytesFree() / bytesAFrame;
        if (room > 0) {
            block.resize(static_cast<std::size_t>(room * Sound::channels));
            fill(block);
            written += std::max<qint64>(
                into->write(reinterpret_cast<const char*>(block.data()), room * bytesAFrame), 0);
        }
        const qint64 waiting = sink->bufferSize() - sink->bytesFree();
        const std::lock_guard hold(lock);
        known = std::max(known, seconds(written - std::min(waiting, written)));
        looked = PlayerClock::computer();
        possible = seconds(written);
        runs = true;
    }

    void end() {
        timer.reset();
        if (sink) sink->reset();
        sink.reset();
        into = nullptr;
    }
};

Speaker::Speaker() : device(std::make_unique<Device>()) {}

Speaker::~Speaker() {
    stop();
}

bool Speaker::start(Fill fill) {
    {
        const std::lock_guard hold(device->lock);
        device->runs = false;
        device->known = device->possible = device->answered = 0;
    }
    bool works = false;
    device->callThere([&] {
        device->fill = std::move(fill);
        works = device->begin();
    });
    return works;
}

void Speaker::stop() {
    device->callThere([this] { device->end(); });
}

/// Between two looks at the device time goes on, but never past what it was given. Of a device that takes its
/// sound in large pieces the next look may give less: time stands still then, and never goes back.
double Speaker::heard() const {
    const std::lock_guard hold(device->lock);
    if (!device->runs) return 0;
    const double now = std::min(device->known + PlayerClock::computer() - device->looked, device->possible);
    return device->answered = std::max(device->answered, now);
}

}
