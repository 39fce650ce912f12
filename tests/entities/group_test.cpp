#include "entities/group.h"

#include <gtest/gtest.h>

namespace zando {
namespace {

TEST(Group, CentreIsTheMeanOriginOfItsBrushesOrOfTheSelection) {
  CZandoBrush first;
  CZandoBrush second;
  CZandoBrush third;
  first.Next = &second;
  second.Next = &third;
  first.MoveTo({10, 0, 4});
  second.MoveTo({20, 3, -4});
  third.MoveTo({100, 100, 100});
  first.BGroup = second.BGroup = 2;
  second.BFlags |= BF_SELECTED;
  third.BFlags |= BF_SELECTED;

  CBGroup group;
  group.ComputeCentre(&first, 2);
  EXPECT_EQ(group.Centre, (Vector{15, 1.5, 0}));
  group.ComputeCentre(&first, -1);
  EXPECT_EQ(group.Centre, (Vector{60, 51.5, 48}));
  group.ComputeCentre(&first, 0);
  EXPECT_EQ(group.WorkCentre, (Vector{0, 0, 0}));
}

}  // namespace
}  // namespace zando
