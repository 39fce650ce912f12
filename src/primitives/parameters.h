#pragma once

#include <tuple>

#include "primitives/box.h"
#include "primitives/cylinder.h"
#include "primitives/spheroid.h"
#include "primitives/staircase.h"

namespace zando {

/// The parameters of every primitive, as the dialogs keep those last used.
using PrimitiveParameters =
    std::tuple<BoxParameters, SpheroidParameters, CylinderParameters, StaircaseParameters>;

}  // namespace zando
