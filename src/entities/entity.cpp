#include "entities/entity.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "platform/number_text.h"
#include "platform/text.h"

namespace zando {
namespace {

constexpr std::string_view kOriginKey = "origin";
constexpr double kUnreachable = 100000.0;

template <typename Pairs>
auto FindPair(Pairs& pairs, std::string_view key) {
  return std::find_if(pairs.begin(), pairs.end(),
                      [key](const EntityPair& pair) { return EqualIgnoringCase(pair.key, key); });
}

/// Up to three numbers, each cut toward zero; those from the first on that is none, or that is
/// beyond 32 bits, are 0.
std::array<std::int32_t, 3> ReadCutNumbers(std::string_view text) {
  using Limits = std::numeric_limits<std::int32_t>;
  std::array<std::int32_t, 3> numbers{};
  for (std::int32_t& number : numbers) {
    double value = 0.0;
    if (TakeNumber(text, value) != Taken::Number) break;
    const double cut = std::trunc(value);
    if (!(Limits::min() <= cut && cut <= Limits::max())) break;
    number = static_cast<std::int32_t>(cut);
  }
  return numbers;
}

/// Toward zero, and to the nearest end of the range; what is not a number is 0.
std::int32_t ToWholeNumber(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(
      std::clamp(value, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

std::string FormatOrigin(const Vector& origin) {
  return FormatWholeNumbers(origin.x, origin.y, origin.z);
}

}  // namespace

std::string QuotedPair(const EntityPair& pair) {
  return '"' + pair.key + "\" \"" + pair.value + '"';
}

void CEntity::AddPair(std::string_view key, std::string_view value) {
  Pairs.push_back({std::string(key), std::string(value)});
}

const std::string& CEntity::GetValue(std::string_view key) const {
  static const std::string kNone;
  const auto found = FindPair(Pairs, key);
  return found == Pairs.end() ? kNone : found->value;
}

bool CEntity::HasKey(std::string_view key) const { return FindPair(Pairs, key) != Pairs.end(); }

void CEntity::SetValue(std::string_view key, std::string_view value) {
  const auto found = FindPair(Pairs, key);
  if (found != Pairs.end()) found->value = value;
}

void CEntity::ParseOrigin() {
  const std::string& value = GetValue(kOriginKey);
  eStyle = value.empty() ? 1 : 0;
  if (eStyle != 0) return;
  const auto [x, y, z] = ReadCutNumbers(value);
  eOrigin = {static_cast<double>(x), static_cast<double>(y), static_cast<double>(z)};
  WorkOrigin = eOrigin;
}

void CEntity::ParseOriginAndNormalise() {
  ParseOrigin();
  if (eStyle != 0) return;
  eOrigin = {eOrigin.x, eOrigin.z, eOrigin.y};
  WorkOrigin = eOrigin;
  SetValue(kOriginKey, FormatOrigin(eOrigin));
}

double CEntity::Distance2D(const Vector& point, const ViewAxes& axes) const {
  if (eStyle != 0) return kUnreachable;
  const double dx = eOrigin.*axes.across - point.*axes.across;
  const double dy = eOrigin.*axes.up - point.*axes.up;
  return std::sqrt(dx * dx + dy * dy);
}

void CEntity::Move(const Vector& displacement, std::uint32_t axisMask) {
  if (eStyle != 0) return;
  const Vector moved = WorkOrigin - Masked(displacement, axisMask);
  WorkOrigin = {std::trunc(moved.x), std::trunc(moved.y), std::trunc(moved.z)};
}

void CEntity::EndMove(double step, std::uint32_t axisMask, Commit commit) {
  eOrigin = Committed(Snapped(WorkOrigin, step, axisMask), eOrigin, commit);
  WorkOrigin = eOrigin;
  SetValue(kOriginKey, FormatOrigin(eOrigin));
}

std::string FormatWholeNumbers(double first, double second, double third) {
  std::string text;
  AppendNumber(text, ToWholeNumber(first));
  AppendNumber(text += ' ', ToWholeNumber(second));
  AppendNumber(text += ' ', ToWholeNumber(third));
  return text;
}

}  // namespace zando
