#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "geometry/axes.h"
#include "geometry/vector.h"

namespace zando {

/// Bits of CEntity::eFlags.
inline constexpr std::int32_t EF_SELECTED = 1;
inline constexpr std::int32_t EF_SHOWN = 2;

/// One key and its value, both 8-bit text.
struct EntityPair {
  std::string key;
  std::string value;

  friend bool operator==(const EntityPair&, const EntityPair&) = default;
};

/// Both in quotes, as lists show them.
[[nodiscard]] std::string QuotedPair(const EntityPair& pair);

/// A game object placed in the level: an ordered list of key/value pairs, with the origin parsed
/// from them. Keys compare without regard to the case of A to Z; the first match wins; pairs keep
/// their order.
class CEntity {
 public:
  std::int32_t eStyle = 0;  ///< 0: the origin was parsed; 1: there is no origin
  std::int32_t eFlags = EF_SHOWN;
  std::int32_t eGroup = -1;          ///< index of the group, -1 for none
  std::uint32_t Color = 0xFFFFFF;    ///< 0x00BBGGRR, the group's colour
  Vector eOrigin{0.0, 0.0, 0.0};     ///< committed origin; Y is vertical
  Vector WorkOrigin{0.0, 0.0, 0.0};  ///< origin while dragged
  std::vector<EntityPair> Pairs;

  /// Whether both hold the same, colours left aside.
  friend bool operator==(const CEntity& a, const CEntity& b) {
    return a.eStyle == b.eStyle && a.eFlags == b.eFlags && a.eGroup == b.eGroup &&
           a.eOrigin == b.eOrigin && a.WorkOrigin == b.WorkOrigin && a.Pairs == b.Pairs;
  }

  [[nodiscard]] bool IsShown() const { return (eFlags & EF_SHOWN) != 0; }
  [[nodiscard]] bool IsSelected() const { return (eFlags & EF_SELECTED) != 0; }

  void AddPair(std::string_view key, std::string_view value);

  /// The value of the first pair with this key, or the empty string.
  [[nodiscard]] const std::string& GetValue(std::string_view key) const;

  /// Whether there is a pair with this key.
  [[nodiscard]] bool HasKey(std::string_view key) const;

  /// Replaces the value of the first pair with this key; without one nothing happens.
  void SetValue(std::string_view key, std::string_view value);

  [[nodiscard]] const std::string& GetClassname() const { return GetValue("classname"); }

  /// Reads the origin from its pair: three numbers x, y, z, each cut toward zero. From the first
  /// that is missing or beyond 32 bits on they are 0. A missing or empty value gives eStyle 1 and
  /// leaves the origin.
  void ParseOrigin();

  /// As ParseOrigin, with the numbers in the game's order x, z, y; rewrites the pair in ours.
  void ParseOriginAndNormalise();

  /// The distance from a point as a view shows them; 100000 for an entity without an origin.
  [[nodiscard]] double Distance2D(const Vector& point, const ViewAxes& axes) const;

  /// Whether the origin lies in a rectangle of a view, borders included.
  [[nodiscard]] bool InRect(const ViewRect& rect) const { return rect.Holds(eOrigin); }

  /// Moves the working origin back by the displacement, along the axes of the mask, and truncates
  /// it to whole numbers. Nothing happens without an origin.
  void Move(const Vector& displacement, std::uint32_t axisMask);

  /// Snaps the working origin to multiples of `step`, which is above 0, along the axes of the mask,
  /// commits it and rewrites the origin pair. Of equal displacements the dominant one is that of z,
  /// then that of y.
  void EndMove(double step, std::uint32_t axisMask, Commit commit);
};

/// The three coordinates, truncated toward zero, separated by blanks. Those beyond 32 bits give the
/// nearest end of the range, those that are not numbers 0.
[[nodiscard]] std::string FormatWholeNumbers(double first, double second, double third);

}  // namespace zando
