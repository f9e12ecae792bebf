#include "core/model/Monitoring.h"

namespace murbo {

bool Monitoring::heard(Lane lane, const std::optional<Mix>& mix) const {
    if (!soloed.empty()) return soloed.contains(lane);
    return !mix || !mix->isMuted(lane);
}

}
