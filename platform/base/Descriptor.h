#pragma once

#include <utility>

#include <unistd.h>

namespace murbo {

/// An open file of the system, closed when it goes. Negative where there is none.
class Descriptor {
public:
    explicit Descriptor(int opened = -1) : number(opened) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    ~Descriptor() { close(); }

    void close() {
        if (number >= 0) ::close(std::exchange(number, -1));
    }
    operator int() const { return number; }

private:
    int number;
};

}
