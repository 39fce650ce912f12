#pragma once

#include <tuple>
#include <variant>

#include "primitives/box.h"
#include "primitives/cylinder.h"
#include "primitives/spheroid.h"
#include "primitives/staircase.h"

namespace zando {

/// The list of all primitives, by their parameters.
template <template <typename...> typename Of>
using OfPrimitives = Of<BoxParameters, SpheroidParameters, CylinderParameters, StaircaseParameters>;

/// The parameters of every primitive, as those last used are kept.
using PrimitiveParameters = OfPrimitives<std::tuple>;

/// The parameters of one primitive.
using AnyPrimitive = OfPrimitives<std::variant>;

}  // namespace zando
