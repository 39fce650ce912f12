#include "bench_level.h"

#include <cmath>
#include <memory>
#include <utility>

#include "primitives/create_box_dlg.h"

namespace zando::bench {
namespace {

/// A small generator of its own, so that every standard library gives the same level.
class CRandom {
 public:
  explicit CRandom(std::uint32_t seed) : state_(seed * 2654435769U + 1U) {}

  std::int32_t Below(std::int32_t limit) {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return static_cast<std::int32_t>(state_ % static_cast<std::uint32_t>(limit));
  }

 private:
  std::uint32_t state_;
};

}  // namespace

void FillLevel(CBrushList& list, std::int32_t count, std::uint32_t seed) {
  CRandom random(seed);
  // With this side a brush of mean size meets about six others.
  const auto side = static_cast<std::int32_t>(180.0 * std::cbrt(static_cast<double>(count)));
  CCreateBoxDlg box;
  for (std::int32_t i = 0; i < count; ++i) {
    const auto size = [&] { return static_cast<double>(64 + random.Below(193)); };
    box.YSize = size();
    box.TopXSize = size();
    box.TopZSize = size();
    const bool tapered = random.Below(5) == 0;
    box.BottomXSize = tapered ? box.TopXSize + 64.0 : box.TopXSize;
    box.BottomZSize = tapered ? box.TopZSize + 32.0 : box.TopZSize;
    auto brush = std::make_unique<CZandoBrush>();
    box.Generate(*brush);
    brush->BBid = i;
    brush->TranT = random.Below(4) == 0 ? kSubtractFromWorld : kAddToWorld;
    if (random.Below(5) == 0) {
      const double yaw = random.Below(8192);
      brush->Rot[kOwnSlot] = {yaw, static_cast<double>(random.Below(1024)), 0.0};
      brush->WorkRot = brush->Rot;
    }
    const double x = random.Below(side);
    const double y = random.Below(side);
    brush->MoveTo({x, y, static_cast<double>(random.Below(side))});
    list.Append(std::move(brush));
  }
}

}  // namespace zando::bench
