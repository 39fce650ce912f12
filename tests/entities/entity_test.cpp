#include "entities/entity.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "geometry/geometry_testing.h"

namespace zando {
namespace {

constexpr std::uint32_t kAllAxes = kAxisX | kAxisY | kAxisZ;

CEntity EntityAt(const Vector& origin) {
  CEntity entity;
  entity.AddPair("origin", FormatWholeNumbers(origin.x, origin.y, origin.z));
  entity.ParseOrigin();
  return entity;
}

TEST(Entity, KeysMatchInAnyCaseAndTheFirstOfEqualOnesIsUsed) {
  CEntity entity;
  entity.AddPair("target", "t1");
  entity.AddPair("ClassName", "light");
  entity.AddPair("TARGET", "t2");
  entity.SetValue("Target", "t3");
  entity.SetValue("targetname", "no prefix of a key is the key");
  EXPECT_EQ(entity.GetClassname(), "light");
  EXPECT_EQ(entity.GetValue("tArGeT"), "t3");
  EXPECT_EQ(entity.GetValue("targ"), "");
  EXPECT_EQ(entity.Pairs,
            (std::vector<EntityPair>{{"target", "t3"}, {"ClassName", "light"}, {"TARGET", "t2"}}));
}

TEST(Entity, OriginTextIsReadUpToTheFirstThingThatIsNoNumberAndCutTowardZero) {
  struct Case {
    std::string text;
    Vector origin;
  };
  const std::vector<Case> cases{
      {"\t+4\n5 \r6 7", {4, 5, 6}},
      {"1-2+3", {1, -2, 3}},
      {"1.5 -2.9 3e1 4", {1, -2, 30}},
      {"-0.5 .5 0x7", {0, 0, 0}},
      {"1 inf 3", {1, 0, 0}},
      {"nan 2 3", {0, 0, 0}},
      {"1 2,3", {1, 2, 0}},
      {"+-5 2 3", {0, 0, 0}},
      {" ", {0, 0, 0}},
      {"-2147483648 2147483647 1", {-2147483648.0, 2147483647.0, 1}},
      {"2147483648 2 3", {0, 0, 0}},
      {"2147483647.9 2 3", {2147483647.0, 2, 3}},
      {"1 2 99999999999999999999", {1, 2, 0}},
  };
  for (const Case& c : cases) {
    CEntity entity = EntityAt({9, 9, 9});
    entity.SetValue("origin", c.text);
    entity.ParseOrigin();
    EXPECT_EQ(entity.WorkOrigin, c.origin) << c.text;
  }
}

TEST(Entity, WithoutAnOriginTextTheOriginStaysAndNothingMovesOrPicksIt) {
  CEntity entity = EntityAt({1, 2, 3});
  entity.SetValue("origin", "");
  entity.ParseOriginAndNormalise();
  entity.Move({5, 5, 5}, kAllAxes);
  EXPECT_EQ(entity.eOrigin, (Vector{1, 2, 3}));
  EXPECT_EQ(entity.WorkOrigin, (Vector{1, 2, 3}));
  EXPECT_EQ(entity.Distance2D({1, 2, 0}, kTopAxes), 100000.0);
}

TEST(Entity, OriginTextHoldsWholeNumbersInOurOrderAndRange) {
  CEntity entity;
  entity.AddPair("origin", " 12  300 -7.5");
  entity.ParseOriginAndNormalise();
  EXPECT_EQ(entity.WorkOrigin, (Vector{12, -7, 300}));
  EXPECT_EQ(entity.GetValue("origin"), "12 -7 300");
  EXPECT_EQ(FormatWholeNumbers(1e300, -1e300, std::numeric_limits<double>::quiet_NaN()),
            "2147483647 -2147483648 0");
}

}  // namespace
}  // namespace zando
