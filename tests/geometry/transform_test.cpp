#include "geometry/transform.h"

#include <functional>

#include "geometry/geometry_testing.h"

namespace zando {
namespace {

TEST(TransformTest, BuildersMapPointsInTheOrderOfTheCalls) {
  using Build = std::function<void(Transform&)>;
  const Build moveScale = [](Transform& t) { t.Translate(10, 0, 0), t.Scale(2, 2, 2); };
  const Build scaleMove = [](Transform& t) { t.Scale(2, 3, -4), t.Translate(10, 0, 0); };
  const struct {
    const char* what;
    Build build;
    Vector point;
    Vector mapped;
  } cases[] = {
      {"yaw of x", [](Transform& t) { t.Rotate(2048, 0, 0); }, {1, 0, 0}, {0, 0, 1}},
      {"yaw of z", [](Transform& t) { t.RotateY(2048); }, {0, 0, 1}, {-1, 0, 0}},
      {"pitch of y", [](Transform& t) { t.Rotate(0, 2048, 0); }, {0, 1, 0}, {0, 0, -1}},
      {"pitch of z", [](Transform& t) { t.RotateX(2048); }, {0, 0, 1}, {0, 1, 0}},
      {"roll of x", [](Transform& t) { t.Rotate(0, 0, 2048); }, {1, 0, 0}, {0, -1, 0}},
      {"roll of y", [](Transform& t) { t.RotateZ(2048); }, {0, 1, 0}, {1, 0, 0}},
      {"yaw before pitch", [](Transform& t) { t.Rotate(2048, 2048, 0); }, {1, 0, 0}, {0, 1, 0}},
      {"pitch before roll", [](Transform& t) { t.Rotate(0, 2048, 2048); }, {0, 0, 1}, {1, 0, 0}},
      {"move, then scale", moveScale, {1, 0, 0}, {22, 0, 0}},
      {"scale, then move", scaleMove, {1, 1, 1}, {12, 3, -4}},
      {"move", [](Transform& t) { t.Translate(1, 2, 3); }, {10, 20, 30}, {11, 22, 33}},
      {"shear", [](Transform& t) { t.Shear(2, 3, 5); }, {0, 0, 1}, {2, 3, 1}},
      {"shear of y", [](Transform& t) { t.Shear(2, 3, 5); }, {1, 1, 0}, {1, 1, 5}},
  };
  for (const auto& c : cases) {
    Transform transform = Transform::Identity();
    c.build(transform);
    Vector point = c.point;
    transform.TransformPoint(point);
    EXPECT_PRED2(Near, point, c.mapped) << c.what;
  }
}

}  // namespace
}  // namespace zando
