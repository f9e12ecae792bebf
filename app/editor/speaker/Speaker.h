#pragma once

#include "app/editor/playback/SoundOutput.h"

#include <atomic>
#include <memory>

namespace murbo {

/// The computer's sound device, as the system has chosen it.
class Speaker : public SoundOutput {
public:
    Speaker();
    ~Speaker() override;

    bool start(Fill fill) override;
    void stop() override;
    double heard() const override;

private:
    struct Device;
    std::unique_ptr<Device> device;
};

}
