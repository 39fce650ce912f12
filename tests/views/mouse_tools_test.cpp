// What a drag does: pressed, moved and released through the view, under every tool.
#include "views/mouse_tools.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/scripted_desktop.h"
#include "views/zando_view.h"

namespace zando {
namespace {

using testing::CFakeViewWindow;
using testing::CScriptedDesktop;
using Button = CZANDOView::MouseButton;
using Key = CZANDOView::Key;

constexpr MouseFlags kNone{};
constexpr MouseFlags kL{.left = true};
constexpr MouseFlags kR{.right = true};
constexpr MouseFlags kLR{.left = true, .right = true};
constexpr std::uint32_t kAllAxes = kAxisX | kAxisY | kAxisZ;

constexpr CommandId kMove = ID_TOOL_MOVE_ROTATE_BRUSH;
constexpr CommandId kScale = ID_TOOL_SCALE_BRUSH;
constexpr CommandId kShear = ID_TOOL_SHEAR_BRUSH;
constexpr CommandId kEntity = ID_TOOL_MOVE_SELECT_ENTITY;
constexpr CommandId kBox = ID_TOOL_SELECT_GROUP;

constexpr ViewKind kTop = ViewKind::Top;
constexpr ViewKind kSide = ViewKind::Side;
constexpr ViewKind kFront = ViewKind::Front;
constexpr ViewKind kSolid = ViewKind::Solid;

Vector Masked3(const Vector& v, std::uint32_t axes) {
  return {(axes & 1) != 0 ? v.x : 0.0, (axes & 2) != 0 ? v.y : 0.0, (axes & 4) != 0 ? v.z : 0.0};
}

void ExpectNear(const Vector& actual, const Vector& expected, const std::string& what) {
  EXPECT_NEAR(actual.x, expected.x, 1e-9) << what;
  EXPECT_NEAR(actual.y, expected.y, 1e-9) << what;
  EXPECT_NEAR(actual.z, expected.z, 1e-9) << what;
}

class MouseTools : public ::testing::Test {
 protected:
  MouseTools() {
    view.SetWindow(&window);
    view.OnSize(400, 300);
    view.Camera().Position = {0.0, 0.0, 0.0};
    view.SetZoom(1.0);
    Use(kMove, kTop);
  }

  void Use(CommandId tool, ViewKind kind, std::uint32_t axes = kAllAxes) {
    document.ToolMode = tool;
    view.SetKind(kind);
    settings.ActiveAxisMask = axes;
  }
  void Press(MouseFlags held, ScreenPoint at = {200, 150}) {
    if (held.left) view.OnButtonDown(Button::Left, kL, at);
    if (held.right) view.OnButtonDown(Button::Right, held, at);
  }
  /// To the right and down.
  void Motion(MouseFlags held, std::int32_t x, std::int32_t y) {
    desktop.Cursor = {desktop.Cursor.x + x, desktop.Cursor.y + y};
    view.OnMouseMove(held, {});
  }
  void Release(MouseFlags held, ScreenPoint at = {200, 150}) {
    if (held.left) view.OnButtonUp(Button::Left, held.right ? kR : kNone, at);
    if (held.right) view.OnButtonUp(Button::Right, kNone, at);
  }
  void DragBy(MouseFlags held, std::int32_t x, std::int32_t y) {
    Press(held);
    Motion(held, x, y);
    Release(held);
  }
  void ExpectAtRest() {
    EXPECT_FALSE(window.Captured);
    EXPECT_EQ(desktop.CursorHidden, 0);
    EXPECT_EQ(desktop.Cursor, (ScreenPoint{500, 400}));
    EXPECT_FALSE(window.DragRect.has_value());
  }

  /// A listed box of 64 around a place, in a group.
  CZandoBrush& AddBox(const Vector& place, std::int32_t group = -1) {
    CZandoBrush box = CZANDODoc().WorkingBrush;
    box.Scl[0] = {0.5, 0.5, 0.5};
    box.BGroup = group;
    box.MoveTo(place);
    return *document.BrushList.Brushes()[static_cast<std::size_t>(document.AddBrush(box))];
  }
  void AddEntityAt(const std::string& origin) {
    CEntity entity;
    entity.AddPair("classname", "light");
    if (!origin.empty()) entity.AddPair("origin", origin);
    entity.ParseOrigin();
    document.Entities.push_back(entity);
  }

  CZANDODoc document;
  CZandoBrush& brush = document.WorkingBrush;
  CEditorSettings settings;
  CScriptedDesktop desktop;
  CFakeViewWindow window;
  CZANDOView view{document, settings, desktop};
};

/// The whole table of tools, for a mouse that moves 3 pixels right and 2 down: DX = -3, DY = -2.
struct Row {
  CommandId tool;
  ViewKind kind;
  MouseFlags held;
  Vector position, angles, scale, shear;  ///< of the brush; the position also of the entity
};
constexpr Vector kZero{0.0, 0.0, 0.0};

std::vector<Row> AllRows() {
  std::vector<Row> rows;
  const auto moves = [&](ViewKind kind, MouseFlags held, const Vector& by) {
    rows.push_back({kMove, kind, held, by, kZero, kZero, kZero});
    rows.push_back({kEntity, kind, held, by, kZero, kZero, kZero});
  };
  const auto turns = [&](ViewKind kind, const Vector& by) {
    rows.push_back({kMove, kind, kR, kZero, by, kZero, kZero});
    rows.push_back({kEntity, kind, kR, kZero, kZero, kZero, kZero});
  };
  const auto resizes = [&](CommandId tool, ViewKind kind, MouseFlags held, const Vector& by) {
    rows.push_back(
        {tool, kind, held, kZero, kZero, tool == kScale ? by : kZero, tool == kShear ? by : kZero});
  };
  for (const ViewKind kind : {ViewKind::Wireframe, kSolid, ViewKind::Texture}) {
    moves(kind, kL, {3, 0, -2});
    moves(kind, kLR, {3, -2, 0});
    turns(kind, {-18, -12, 0});
    resizes(kScale, kind, kL, {0.015, 0, -0.01});
    resizes(kScale, kind, kR, {0.015, -0.01, 0});
    resizes(kScale, kind, kLR, {0.015, 0.015, 0.015});
    resizes(kShear, kind, kL, {-0.015, 0, 0.01});
    resizes(kShear, kind, kR, {-0.015, 0.01, 0});
    resizes(kShear, kind, kLR, kZero);
  }
  for (const MouseFlags held : {kL, kLR}) {
    moves(kTop, held, {3, 0, -2});
    moves(kSide, held, {0, -2, 3});
    moves(kFront, held, {3, -2, 0});
  }
  turns(kTop, {-18, 0, 0});
  turns(kSide, {0, -18, 0});
  turns(kFront, {0, 0, -18});
  resizes(kScale, kTop, kL, {0.015, 0, -0.01});
  resizes(kScale, kSide, kL, {0, -0.01, 0.015});
  resizes(kScale, kFront, kL, {0.015, -0.01, 0});
  resizes(kScale, kTop, kLR, {0.015, 0, 0.015});
  resizes(kScale, kSide, kLR, {0, 0.015, 0.015});
  resizes(kScale, kFront, kLR, {0.015, 0.015, 0});
  resizes(kShear, kTop, kL, {0.01, 0, -0.015});
  resizes(kShear, kSide, kL, {0, 0, -0.015});
  resizes(kShear, kFront, kL, {-0.015, 0, 0});
  for (const ViewKind kind : {kTop, kSide, kFront}) {
    resizes(kScale, kind, kR, kZero);
    resizes(kShear, kind, kR, kZero);
    resizes(kShear, kind, kLR, kZero);
  }
  return rows;
}

TEST_F(MouseTools, EveryStepChangesWhatItsViewAndButtonsSayUnderEveryAxisMask) {
  AddEntityAt("10 20 30");
  document.CurrentEntity = 0;
  const CEntity untouched = document.Entities[0];
  const CZandoBrush fresh = brush;
  for (const Row& row : AllRows()) {
    for (std::uint32_t axes = 0; axes <= kAllAxes; ++axes) {
      const std::string what = "tool " + std::to_string(row.tool) + " kind " +
                               std::to_string(static_cast<int>(row.kind)) + " buttons " +
                               (row.held.left ? "L" : "") + (row.held.right ? "R" : "") + " axes " +
                               std::to_string(axes);
      brush = fresh;
      document.Entities[0] = untouched;
      Use(row.tool, row.kind, axes);
      const int redraws = window.Redraws;
      Press(row.held);
      Motion(row.held, 3, 2);
      EXPECT_EQ(window.Redraws, redraws + 1) << what;
      EXPECT_EQ(desktop.Cursor, (ScreenPoint{500, 400})) << what;
      if (row.tool == kMove) {
        EXPECT_EQ(document.LastDragWasRotate, row.angles == kZero ? 0 : 1) << what;
      }
      const Vector moved = Masked3(row.position, axes);
      const bool ofEntity = row.tool == kEntity;
      ExpectNear(brush.WorkPos[0] - brush.Pos[0], ofEntity ? kZero : moved, what);
      ExpectNear(brush.WorldOrigin(), ofEntity ? kZero : moved, what);
      ExpectNear(document.Entities[0].WorkOrigin - untouched.eOrigin, ofEntity ? moved : kZero,
                 what);
      ExpectNear(ByAxis(brush.WorkRot[0]), Masked3(ByAxis(row.angles), axes), what);
      ExpectNear(brush.Scl[0] - Vector{1, 1, 1}, Masked3(row.scale, axes), what);
      ExpectNear(brush.Shr[0], Masked3(row.shear, axes), what);
      Release(row.held);
    }
  }
  ExpectAtRest();
}

TEST_F(MouseTools, AReleasedMoveSnapsHalvesUpAndOnlyAlongAllowedAxes) {
  struct Case {
    std::int32_t useGrid;
    double grid, from;
    std::int32_t pixels;
    double to;
  };
  for (const Case& c : {Case{1, 16, 0.9, 23, 16}, Case{1, 16, 0, 24, 32}, Case{1, 16, 0, -24, -16},
                        Case{1, 16, 0, -25, -32}, Case{0, 16, 0.4, 5, 5}, Case{0, 16, 0.5, 5, 6},
                        Case{1, 0, 0.4, 5, 5}, Case{1, HUGE_VAL, 0.4, 5, 5}}) {
    document.UseGrid = c.useGrid;
    document.GridSize = c.grid;
    brush.MoveTo({c.from, 3.3, 4.4});
    settings.ActiveAxisMask = kAxisX;
    DragBy(kL, c.pixels, 50);
    EXPECT_EQ(brush.Pos[0], (Vector{c.to, 3.3, 4.4})) << c.from << " moved by " << c.pixels;
    EXPECT_EQ(brush.WorkPos[0], brush.Pos[0]);
    EXPECT_EQ(brush.DragMatrix, Transform::Identity());
    ExpectNear(brush.WorldOrigin(), brush.Pos[0], "committed");
  }
  EXPECT_TRUE(document.IsModified());
}

TEST_F(MouseTools, ShiftAtTheReleaseKeepsTheLargestChange) {
  struct Case {
    Vector by, kept;
  };
  Use(kMove, kSolid);
  for (const Case& c : {Case{{30, 0, -50}, {0, 0, -50}}, Case{{51, 0, -50}, {51, 0, 0}},
                        Case{{50, 0, -50}, {0, 0, -50}}, Case{{20, 20, 0}, {0, 20, 0}},
                        Case{{0, 20, -20}, {0, 0, -20}}, Case{{20, 21, 20}, {0, 21, 0}}}) {
    brush.MoveTo(kZero);
    Press(kL);
    document.MoveBrush(-c.by, kAllAxes);
    desktop.ShiftDown = true;
    Release(kL);
    desktop.ShiftDown = false;
    EXPECT_EQ(brush.Pos[0], c.kept);
    ExpectNear(brush.WorldOrigin(), c.kept, "world");
  }
}

TEST_F(MouseTools, AReleasedTurnSnapsToItsStepAndShiftKeepsOneAngle) {
  Use(kMove, kSolid);
  document.RotationSnap = 1024.0;
  DragBy(kR, -86, -85);  // 516 and 510 units
  EXPECT_EQ(brush.Rot[0], (Vector{1024, 0, 0}));
  EXPECT_EQ(brush.WorkRot[0], brush.Rot[0]);
  document.UseRotationSnap = 0;
  DragBy(kR, -2, 0);
  EXPECT_DOUBLE_EQ(brush.Rot[0].x, std::floor(1036.0 / (8192.0 / 360.0) + 0.5) * 8192.0 / 360.0);

  document.UseRotationSnap = 1;
  document.RotationSnap = 6.0;
  const auto turned = [&](const Vector& angles) {
    brush.ResetSlot(0);
    Press(kR);
    document.RotateBrush(angles, kAllAxes);
    desktop.ShiftDown = true;
    Release(kR);
    desktop.ShiftDown = false;
    return brush.Rot[0];
  };
  EXPECT_EQ(turned({60, 66, 0}), (Vector{0, 66, 0}));
  EXPECT_EQ(turned({60, 60, 0}), (Vector{60, 0, 0})) << "yaw is about y, which wins over x";
  EXPECT_EQ(turned({60, 60, 60}), (Vector{0, 0, 60}));
}

TEST_F(MouseTools, ScalesStopAtATenth) {
  Use(kScale, kSolid, kAxisX);
  brush.Scl[0].y = 0.05;
  DragBy(kLR, -5000, 0);
  EXPECT_EQ(brush.Scl[0], (Vector{0.1, 0.1, 1.0}));
}

TEST_F(MouseTools, AReleaseSnapsTheCurrentEntityAndWritesItsOrigin) {
  AddEntityAt("10 20 30");
  AddEntityAt("");
  document.CurrentEntity = 0;
  document.UseGrid = 1;
  document.GridSize = 8.0;
  const CEntity& entity = document.Entities[0];
  Use(kEntity, kFront);
  DragBy(kL, 3, 1);
  EXPECT_EQ(entity.eOrigin, (Vector{16, 16, 32})) << "12 is a half of 8";
  EXPECT_EQ(entity.GetValue("origin"), "16 16 32");
  desktop.ShiftDown = true;
  DragBy(kL, 9, 16);
  EXPECT_EQ(entity.GetValue("origin"), "16 0 32");
  // A drag that ends with the right button is committed; a mere click changes nothing.
  desktop.ShiftDown = false;
  DragBy(kLR, 8, 0);
  EXPECT_EQ(entity.GetValue("origin"), "24 0 32");
  document.GridSize = 10.0;
  DragBy(kR, 5, 0);
  Press(kR);
  view.EndDrag();
  EXPECT_EQ(entity.GetValue("origin"), "24 0 32");
  Use(kMove, kFront);
  DragBy(kL, 1, 0);
  EXPECT_EQ(entity.GetValue("origin"), "20 0 30");
  document.CurrentEntity = 1;
  Use(kEntity, kFront);
  DragBy(kL, 5, 0);
  EXPECT_EQ(document.Entities[1].WorkOrigin, kZero);
}

/// Members of a group at odd places, one that is no member, and the group's centre.
class GroupTools : public MouseTools {
 protected:
  GroupTools() {
    document.Groups.resize(2);
    document.Groups[1].Centre = kPivot;
    document.CurrentGroup = 1;
    document.GroupMovementMode = 1;
    document.UseRotationSnap = 1;
    document.RotationSnap = 6.0;
    members = {&AddBox({100.5, 10, 20}, 1), &AddBox({-40, 30, 7.25}, 1)};
    members[1]->Rot[0] = members[1]->WorkRot[0] = {700, 100, 50};
    outsider = &AddBox({8, 8, 8}, 0);
  }

  static Vector CornerOf(CZandoBrush& member) {
    member.UpdateWorld();
    return member.WorldPolys[0][0];
  }

  static constexpr Vector kPivot{10, 20, 30};
  std::vector<CZandoBrush*> members;
  CZandoBrush* outsider = nullptr;
};

TEST_F(GroupTools, TurnsScalesAndShearsActAboutThePivotAsTheMatricesDo) {
  struct Case {
    CommandId tool;
    ViewKind kind;
    MouseFlags held;
    std::function<void(Transform&)> matrix;
  };
  const std::vector<Case> cases = {
      {kMove, kTop, kR, [](Transform& t) { t.Rotate(-60, 0, 0); }},
      {kMove, kSide, kR, [](Transform& t) { t.Rotate(0, -60, 0); }},
      {kMove, kSolid, kR, [](Transform& t) { t.Rotate(-60, -24, 0); }},
      {kScale, kFront, kL, [](Transform& t) { t.Scale(1.05, 0.98, 1.0); }},
      {kScale, kSolid, kLR, [](Transform& t) { t.Scale(1.05, 1.05, 1.05); }},
      {kShear, kTop, kL, [](Transform& t) { t.Shear(0.02, 0.0, -0.05); }},
  };
  for (const Case& c : cases) {
    Use(c.tool, c.kind);
    Transform expected = Transform::Identity();
    expected.Translate(-kPivot);
    c.matrix(expected);
    expected.Translate(kPivot);
    std::vector<Vector> corners;
    for (CZandoBrush* member : members) {
      corners.push_back(CornerOf(*member));
      expected.TransformPoint(corners.back());
    }
    const Vector away = CornerOf(*outsider);
    Press(c.held);
    Motion(c.held, 10, 4);
    const std::string what = "tool " + std::to_string(c.tool);
    for (std::size_t i = 0; i < 2; ++i) ExpectNear(CornerOf(*members[i]), corners[i], what);
    Release(c.held);
    for (std::size_t i = 0; i < 2; ++i) {
      ExpectNear(CornerOf(*members[i]), corners[i], what + " committed");
      EXPECT_EQ(members[i]->DragMatrix, Transform::Identity());
      EXPECT_EQ(members[i]->Scl[1], (Vector{1, 1, 1}));
      EXPECT_EQ(members[i]->WorkRot[1], kZero);
      EXPECT_EQ(members[i]->Pos[1], kPivot);
    }
    EXPECT_EQ(CornerOf(*outsider), away);
  }
  CZANDODoc untouched;
  EXPECT_EQ(CornerOf(brush), CornerOf(untouched.WorkingBrush)) << "no member, though current";
}

TEST_F(GroupTools, AMoveTakesEveryMemberAndRenewsThePivot) {
  document.UseGrid = 1;
  document.GridSize = 16.0;
  DragBy(kL, 7, 0);
  EXPECT_EQ(members[0]->Pos[0], (Vector{112, 16, 16}));
  EXPECT_EQ(members[1]->Pos[0], (Vector{-32, 32, 0}));
  EXPECT_EQ(outsider->Pos[0], (Vector{8, 8, 8}));
  // The mean of the places while they were still dragged.
  const Vector pivot{37.25, 20, 13.625};
  ExpectNear(document.Groups[1].Centre, pivot, "centre");
  for (const CZandoBrush* member : members) ExpectNear(member->Pos[1], pivot, "pivot");
}

TEST_F(GroupTools, WithoutACurrentGroupNothingMoves) {
  document.CurrentGroup = -1;
  const Vector before = members[0]->Pos[0];
  for (const CommandId tool : {kMove, kScale, kShear}) {
    Use(tool, kSolid);
    for (const MouseFlags held : {kL, kR}) DragBy(held, 9, 9);
  }
  view.OnCommand(ID_ROTATE_90);
  document.ResetBrush();
  EXPECT_EQ(members[0]->Pos[0], before);
  EXPECT_EQ(brush.Pos[0], kZero);
  EXPECT_EQ(brush.WorkRot[0], kZero);
  EXPECT_EQ(brush.Scl[0], (Vector{1, 1, 1}));
  ExpectAtRest();
}

TEST_F(MouseTools, TheLastButtonUpEndsTheDragWhateverTheOrder) {
  for (const bool leftFirst : {true, false}) {
    brush.MoveTo(kZero);
    view.OnButtonDown(Button::Left, kL, {});
    Motion(kL, 4, 0);
    view.OnButtonDown(Button::Right, kLR, {});
    Motion(kLR, 4, 0);
    view.OnButtonUp(leftFirst ? Button::Left : Button::Right, leftFirst ? kR : kL, {});
    EXPECT_TRUE(window.Captured);
    EXPECT_EQ(desktop.CursorHidden, 1);
    EXPECT_EQ(brush.Pos[0], kZero);
    view.OnButtonUp(leftFirst ? Button::Right : Button::Left, kNone, {});
    EXPECT_EQ(brush.Pos[0], (Vector{8, 0, 0}));
    ExpectAtRest();
  }
}

TEST_F(MouseTools, AMoveThatBecomesATurnIsCommittedFirst) {
  document.RotationSnap = 6.0;
  view.OnButtonDown(Button::Left, kL, {});
  Motion(kL, 7, 0);
  view.OnButtonDown(Button::Right, kLR, {});
  Motion(kLR, 2, 0);
  view.OnButtonUp(Button::Left, kR, {});
  Motion(kR, -5, 0);
  EXPECT_EQ(brush.Pos[0], (Vector{9, 0, 0}));
  EXPECT_EQ(brush.DragMatrix, Transform::Identity());
  view.OnButtonUp(Button::Right, kNone, {});
  EXPECT_EQ(brush.Rot[0], (Vector{30, 0, 0}));
  EXPECT_EQ(brush.WorkPos[0], brush.Pos[0]);
  ExpectAtRest();
}

TEST_F(MouseTools, ADragThatIsCutShortIsCommittedAndLeavesNothingBehind) {
  CZandoBrush& picked = AddBox({10, 0, 0});
  const auto start = [&] {
    document.ToolMode = kMove;
    document.SetCurrentBrush(picked);
    Press(kL);
    Motion(kL, 5, 0);
  };
  start();
  view.EndDrag();
  EXPECT_EQ(picked.Pos[0], (Vector{15, 0, 0}));
  EXPECT_EQ(picked.DragMatrix, Transform::Identity());
  ExpectAtRest();
  Motion(kL, 5, 0);
  EXPECT_EQ(picked.WorkPos[0], (Vector{15, 0, 0}));
  desktop.Cursor = {500, 400};
  Release(kL);

  // Another tool chosen in the middle does not take the drag over.
  start();
  document.ToolMode = kScale;
  Motion(kL, 5, 0);
  Release(kL);
  EXPECT_EQ(picked.Pos[0], (Vector{25, 0, 0}));
  EXPECT_EQ(picked.Scl[0], (Vector{0.5, 0.5, 0.5}));

  start();
  view.OnKeyDown(Key::Delete, kL);
  EXPECT_EQ(document.BrushCount(), 0);
  ExpectAtRest();
  Motion(kL, 5, 0);
  Release(kL);
  EXPECT_EQ(brush.WorkPos[0], kZero);

  Use(kBox, kTop);
  Press(kL, {10, 10});
  view.OnMouseMove(kL, {50, 50});
  desktop.Cursor = {500, 400};
  view.EndDrag();
  ExpectAtRest();
}

TEST_F(MouseTools, ABoxSelectsWhatLiesInItFromWhicheverCornerItIsDrawn) {
  CZandoBrush& inside = AddBox({50, 0, 50});
  CZandoBrush& crossing = AddBox({130, 0, 50});
  CZandoBrush& hidden = AddBox({60, 0, 60});
  CZandoBrush& ofEntity = AddBox({20, 0, 50});
  hidden.BFlags = 0;
  AddEntityAt("82 999 50");
  AddEntityAt("83 0 50");
  // The first brush of the walk must not belong to an entity; later ones may.
  ofEntity.BFlags |= BF_ENTITY;
  const auto selected = [&] {
    std::string names;
    if (inside.IsSelected()) names += "i";
    if (crossing.IsSelected()) names += "c";
    if (hidden.IsSelected()) names += "h";
    if (ofEntity.IsSelected()) names += "e";
    for (const CEntity& entity : document.Entities) names += entity.IsSelected() ? "1" : "0";
    return names;
  };
  // The view is 400 x 300 around the world's origin: world x -20..82 and z 10..82.
  const ScreenPoint corners[] = {{180, 68}, {282, 68}, {282, 140}, {180, 140}};
  Use(kBox, kTop);
  for (std::size_t from = 0; from < 4; ++from) {
    for (const bool select : {true, false}) {
      const MouseFlags held = select ? kL : kR;
      Press(held, corners[from]);
      EXPECT_EQ(window.DragRect, NormalizedRect(corners[from], corners[from]));
      view.OnMouseMove(held, corners[(from + 2) % 4]);
      EXPECT_EQ(window.DragRect, (ScreenRect{180, 68, 282, 140}));
      EXPECT_EQ(desktop.CursorHidden, 0);
      Release(held, corners[(from + 2) % 4]);
      EXPECT_EQ(selected(), select ? "ie10" : "00") << "from corner " << from;
      ExpectAtRest();
    }
  }
}

TEST_F(MouseTools, AClickPicksTheSmallestBrushAndARightPressTheNearestEntity) {
  AddBox({50, 0, 50});
  CZandoBrush& small = AddBox({50, 0, 50});
  small.Scl[0] = {0.25, 0.25, 0.25};
  Use(ID_TOOL_SELECT_BRUSH, kTop);
  document.ShowBrush = 0;
  Press(kL, {250, 100});
  EXPECT_EQ(desktop.CursorHidden, 0);
  EXPECT_EQ(document.CurrentBrush, &brush) << "the release picks";
  Release(kL, {250, 100});
  EXPECT_EQ(document.CurrentBrush, &small);
  EXPECT_EQ(document.ToolMode, kMove);
  EXPECT_EQ(document.ShowBrush, 1);
  document.ToolMode = ID_TOOL_SELECT_BRUSH;
  Press(kR);
  EXPECT_EQ(desktop.CursorHidden, 1);
  Motion(kR, 5, 5);
  Release(kR);
  EXPECT_EQ(small.Pos[0], (Vector{50, 0, 50}));
  document.CurrentBrush = &brush;
  document.ToolMode = ID_TOOL_SELECT_BRUSH;
  Press(kL, {250, 100});
  Release(kLR, {250, 100});
  EXPECT_EQ(document.CurrentBrush, &brush) << "the right button ended it";

  AddEntityAt("100 0 0");
  AddEntityAt("-20 500 0");
  AddEntityAt("");
  Use(kEntity, kTop);
  const auto pick = [&](ScreenPoint at) {
    Press(kR, at);
    Release(kR, at);
    return document.CurrentEntity;
  };
  EXPECT_EQ(pick({240, 150}), 0) << "as near as the other, and first";
  EXPECT_EQ(pick({239, 150}), 1);
  EXPECT_EQ(pick({400, 150}), 0) << "exactly 100 away";
  document.CurrentEntity = 1;
  EXPECT_EQ(pick({399, 0}), 1) << "too far from any";
  ExpectAtRest();
}

TEST_F(MouseTools, SpaceAndTheMiddleButtonToggleTheCameraUnlessAButtonIsDown) {
  document.ToolMode = kShear;
  view.OnKeyDown(Key::Space, kL);
  view.OnKeyDown(Key::Space, kR);
  view.OnButtonUp(Button::Middle, kR, {});
  EXPECT_EQ(document.ToolMode, kShear);
  view.OnKeyDown(Key::Space, kNone);
  EXPECT_EQ(document.ToolMode, ID_TOOL_CAMERA);
  view.OnButtonUp(Button::Middle, kNone, {});
  EXPECT_EQ(document.ToolMode, kShear);
}

TEST_F(MouseTools, KeysDeleteWhatTheToolWorksOnAndStepTheGrid) {
  AddEntityAt("1 2 3");
  AddEntityAt("4 5 6");
  for (const CommandId tool : {kMove, kScale, kShear, kEntity, kBox, ID_TOOL_CAMERA}) {
    document.ToolMode = tool;
    document.SetCurrentBrush(AddBox(kZero));
    document.CurrentEntity = 1;
    const auto entities = document.Entities;
    view.OnKeyDown(Key::Delete, kNone);
    const bool ofBrush = tool == kMove || tool == kScale || tool == kShear;
    EXPECT_EQ(document.CurrentBrush == &brush, ofBrush) << tool;
    EXPECT_EQ(document.Entities.size(), tool == kEntity ? 1U : 2U) << tool;
    EXPECT_EQ(document.CurrentEntity, tool == kEntity ? 0 : 1) << tool;
    document.Entities = entities;
  }
  document.GridSize = 3.0;
  for (const double size : {1.5, 1.5}) {
    view.OnKeyDown(Key::KeypadMinus, kNone);
    EXPECT_EQ(document.GridSize, size);
  }
  view.OnKeyDown(Key::KeypadPlus, kNone);
  EXPECT_EQ(document.GridSize, 3.0);
}

TEST_F(MouseTools, Rotate90TurnsAboutTheViewsAxisUnsnappedAndToStay) {
  const std::vector<std::pair<ViewKind, Vector>> turns = {
      {kTop, {2048, 0, 0}}, {kSolid, {2048, 0, 0}}, {kSide, {0, 2048, 0}}, {kFront, {0, 0, 2048}}};
  for (const auto& [kind, by] : turns) {
    brush.Rot[0] = brush.WorkRot[0] = {7, 8, 9};
    Use(kMove, kind);
    EXPECT_TRUE(view.OnCommand(ID_ROTATE_90));
    EXPECT_EQ(brush.WorkRot[0], (Vector{7, 8, 9}) + by);
    EXPECT_EQ(brush.Rot[0], brush.WorkRot[0]);
    Use(kMove, kind, 0);
    view.OnCommand(ID_ROTATE_90);
    EXPECT_EQ(brush.WorkRot[0], (Vector{7, 8, 9}) + by);
  }
  document.ResetBrush();
  EXPECT_EQ(brush.WorkRot[0], kZero);
}

}  // namespace
}  // namespace zando
