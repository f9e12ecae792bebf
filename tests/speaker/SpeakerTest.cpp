#include "app/editor/speaker/Speaker.h"

#include <QAudioDevice>
#include <QAudioSink>
#include <QMediaDevices>
#include <QThread>
#include <QTimer>
#include <chrono>
#include <functional>
#include <thread>

#include <gtest/gtest.h>

namespace fake {

/// The one device of the test: what is found there and what was asked of it.
struct Board {
    std::atomic<bool> there = true, opens = true, fails = false;
    std::atomic<bool> held = false;           ///< whoever is to give it sound waits
    std::atomic<qint64> buffer = 0, free = 0; ///< bytes; as large as asked for where 0
    std::atomic<qint64> taken = 0; ///< bytes written; at most `most` at a time, none where negative
    std::atomic<qint64> most = 1 << 30;
    std::atomic<int> sinks = 0, resets = 0, looks = 0;
    std::atomic<qsizetype> asked = 0;
    QAudioFormat format;
    std::vector<float> sound; ///< what was written
};
Board* board = nullptr;

struct BoardDevice {
    bool isNull() const { return !board->there; }
    bool isFormatSupported(const QAudioFormat& format) const { return format == board->format; }
};

struct BoardDevices {
    static BoardDevice defaultAudioOutput() { return {}; }
};

class BoardStream : public QIODevice {
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* bytes, qint64 count) override {
        if (board->most < 0) return -1;
        const auto taken = std::min<qint64>(count, board->most);
        const auto* from = reinterpret_cast<const float*>(bytes);
        board->sound.insert(board->sound.end(), from, from + taken / 4);
        board->free -= taken;
        board->taken += taken;
        return taken;
    }
};

/// Takes sound as Qt's own does, on one thread alone.
class BoardSink {
public:
    BoardSink(const BoardDevice&, const QAudioFormat& format) {
        EXPECT_EQ(format, board->format);
        ++board->sinks;
    }
    ~BoardSink() {
        EXPECT_EQ(QThread::currentThread(), thread);
        --board->sinks;
    }
    void setBufferSize(qsizetype size) {
        board->asked = size;
        if (board->buffer == 0) board->free = board->buffer = size;
    }
    QIODevice* start() {
        stream.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        return board->opens ? &stream : nullptr;
    }
    QAudio::Error error() const { return board->fails ? QAudio::OpenError : QAudio::NoError; }
    qsizetype bytesFree() const {
        EXPECT_EQ(QThread::currentThread(), thread);
        ++board->looks;
        return board->free;
    }
    qsizetype bufferSize() const { return board->buffer; }
    void reset() { ++board->resets; }

private:
    QThread* const thread = QThread::currentThread();
    BoardStream stream;
};

}

using fake::BoardDevices, fake::BoardSink;

// The speaker on the test's device in the place of Qt's.
#define QMediaDevices BoardDevices
#define QAudioSink BoardSink
#include "app/editor/speaker/Speaker.cpp"
#undef QMediaDevices
#undef QAudioSink

namespace murbo {
namespace {

class SpeakerTest : public testing::Test {
protected:
    SpeakerTest() {
        fake::board = &its;
        its.format.setSampleRate(48000);
        its.format.setChannelCount(2);
        its.format.setSampleFormat(QAudioFormat::Float);
    }

    /// Starts with a sound that counts its samples.
    bool start() {
        its.sound.clear();
        return speaker.start([this, next = 0.0F](std::span<float> into) mutable {
            EXPECT_NE(QThread::currentThread(), mine);
            while (its.held) std::this_thread::yield();
            for (auto& each : into) each = next++;
        });
    }
    void wait(const std::function<bool()>& until) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!until() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
        EXPECT_TRUE(until());
    }
    /// The device plays until that many bytes are free, and is looked at.
    void plays(qint64 bytes) {
        its.free = bytes;
        for (const int before = its.looks; its.looks < before + 5;) std::this_thread::yield();
    }

    fake::Board its;
    QThread* const mine = QThread::currentThread();
    Speaker speaker;
};

TEST_F(SpeakerTest, theDeviceGetsWhatItHasRoomFor) {
    EXPECT_EQ(speaker.heard(), 0);
    ASSERT_TRUE(start());
    EXPECT_EQ(its.asked, 30720) << "80 ms";
    EXPECT_EQ(its.taken, 30720) << "at once, so that it begins without a gap";
    plays(804);
    EXPECT_EQ(its.taken, 30720 + 800) << "whole frames";
    plays(7);
    EXPECT_EQ(its.taken, 30720 + 800);
    speaker.stop();
    EXPECT_EQ(its.sinks, 0);
    EXPECT_EQ(its.resets, 1) << "silent at once";
    for (std::size_t at = 0; at < its.sound.size(); ++at) ASSERT_EQ(its.sound[at], float(at));
    EXPECT_EQ(its.sound.size(), 31520 / 4);
}

TEST_F(SpeakerTest, whatIsHeardGoesOnBetweenTwoLooksButNeverPastWhatWasWritten) {
    its.buffer = 3'840'000; // ten seconds
    its.free = 38'400;
    ASSERT_TRUE(start());
    EXPECT_LT(speaker.heard(), 0.1);
    its.held = true; // no look for a while
    its.free = 8;
    wait([&] { return speaker.heard() == 0.1; });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(speaker.heard(), 0.1);
    its.held = false;
    wait([&] { return its.free == 0; });
    plays(3'840'000); // it has run dry
    EXPECT_EQ(its.taken, 3'878'408);
    EXPECT_GE(speaker.heard(), 0.1);
    EXPECT_LT(speaker.heard(), 5) << "ten more are waiting";
    plays(1'920'000);
    const double now = speaker.heard();
    EXPECT_GE(now, 5.1);
    EXPECT_LT(now, 9);
    its.buffer = 5'760'000; // as if more were waiting than before
    plays(0);
    EXPECT_GE(speaker.heard(), now) << "never back";
    // Another start counts anew.
    its.buffer = its.free = 3'840'000;
    speaker.stop();
    ASSERT_TRUE(start());
    EXPECT_LT(speaker.heard(), 4);
    // What the device does not take is not counted.
    const auto before = its.taken.load() - 3'840'000;
    its.most = 8000;
    plays(3'840'000);
    its.most = -1;
    plays(3'840'000);
    EXPECT_EQ(speaker.heard(), static_cast<double>(its.taken - before) / (48000 * 8));
}

TEST_F(SpeakerTest, withoutADeviceThatPlaysItDoesNotStart) {
    ASSERT_TRUE(start());
    speaker.stop();
    const auto fails = [&](const char* why) {
        EXPECT_FALSE(start()) << why;
        EXPECT_EQ(its.sinks, 0) << why;
        EXPECT_TRUE(its.sound.empty()) << why;
        EXPECT_EQ(speaker.heard(), 0) << why;
        speaker.stop();
    };
    its.there = false;
    fails("none is there");
    its.there = true;
    its.opens = false;
    fails("it can't be opened");
    its.opens = true;
    its.fails = true;
    fails("it fails");
    its.fails = false;
    its.format.setSampleRate(44100);
    fails("it wants another format");
    its.format.setSampleRate(48000);
    its.free = 0;
    its.buffer = 0;
    EXPECT_TRUE(start()) << "as soon as there is one";
}

}
}
