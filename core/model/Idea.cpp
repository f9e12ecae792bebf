#include "core/model/Idea.h"

namespace murbo {

double Idea::length() const {
    double length = 0;
    for (const auto& cut : cuts) length += cut.length();
    return length;
}

}
