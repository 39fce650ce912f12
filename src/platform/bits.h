#pragma once

#include <cstdint>

namespace zando {

/// Sets or clears one bit of flags.
constexpr void SetBit(std::int32_t& flags, std::int32_t bit, bool on) {
  flags = on ? flags | bit : flags & ~bit;
}

}  // namespace zando
