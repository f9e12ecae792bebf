#pragma once

#include "core/playbooks/Hold.h"
#include "core/render/plan/Movement.h"

#include <cstdint>

/// The movements that layers keep up while they are on.
namespace murbo::Stage::Holds {

/// Where a hold has brought its layer after `held` seconds. Layers with different seeds shake differently.
Movement at(Hold hold, double held, std::uint64_t seed);

/// Whether a layer with that hold is ever anywhere but at rest.
bool isMoving(Hold hold);

}
