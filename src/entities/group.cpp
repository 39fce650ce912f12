#include "entities/group.h"

namespace zando {

void CBGroup::ComputeCentre(const CZandoBrush* head, std::int32_t g) {
  Vector sum{0.0, 0.0, 0.0};
  std::int32_t counted = 0;
  for (const CZandoBrush* brush = head; brush != nullptr; brush = brush->Next) {
    if (g == -1 ? !brush->IsSelected() : brush->BGroup != g) continue;
    sum = sum + brush->WorldOrigin();
    ++counted;
  }
  if (counted > 0) sum = {sum.x / counted, sum.y / counted, sum.z / counted};
  Centre = sum;
  WorkCentre = sum;
}

void CBGroup::ResetGroupTransform() {
  Rotation = {0.0, 0.0, 0.0};
  WorkRotation = Rotation;
  Scale = {1.0, 1.0, 1.0};
  Shear = {0.0, 0.0, 0.0};
  WorkCentre = Centre;
}

}  // namespace zando
