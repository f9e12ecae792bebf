#pragma once

#include "core/render/captions/CaptionCache.h"
#include "core/render/plan/Plan.h"
#include "core/render/stage/PlaybookMedia.h"

#include <memory>
#include <mutex>
#include <utility>

namespace murbo {

/// Where those who draw find the plan and those who edit put a new one. Any thread may use it: a plan that
/// was taken out stays as it is. The pictures of captions and playbooks outlive a change of plan.
class PlanBox {
public:
    explicit PlanBox(Plan plan) : current(std::make_shared<const Plan>(std::move(plan))) {}

    std::shared_ptr<const Plan> plan() const {
        const std::lock_guard hold(lock);
        return current;
    }

    void replace(Plan plan) {
        auto next = std::make_shared<const Plan>(std::move(plan));
        const std::lock_guard hold(lock);
        current.swap(next);
    }

    CaptionCache& captions() { return cache; }
    PlaybookMedia& media() { return playbookMedia; }

private:
    mutable std::mutex lock;
    std::shared_ptr<const Plan> current;
    CaptionCache cache;
    PlaybookMedia playbookMedia;
};

}
