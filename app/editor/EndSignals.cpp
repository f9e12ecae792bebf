#include "app/editor/EndSignals.h"

#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

namespace murbo {

EndSignals::EndSignals() {
    sigset_t caught;
    sigemptyset(&caught);
    sigaddset(&caught, SIGINT);
    sigaddset(&caught, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &caught, &before);
    descriptor = signalfd(-1, &caught, SFD_CLOEXEC | SFD_NONBLOCK);
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        signalfd_siginfo caughtOne;
        while (read(descriptor, &caughtOne, sizeof caughtOne) > 0) emit ending();
    });
}

EndSignals::~EndSignals() {
    close(descriptor);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}
