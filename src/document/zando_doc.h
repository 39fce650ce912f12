#pragma once

#include <cstdint>
#include <vector>

#include "csg/bsp_tree.h"
#include "document/brush_list.h"
#include "document/command_ids.h"
#include "entities/entity.h"
#include "entities/group.h"
#include "geometry/brush.h"
#include "platform/document.h"
#include "platform/frame_display.h"
#include "primitives/box.h"
#include "textures/wad2.h"

namespace zando {

using CEntList = std::vector<CEntity>;
using CGroupList = std::vector<CBGroup>;

/// The level: its brushes, entities and groups, the working brush that the primitives fill, the
/// world built from the brushes, and the editing state that all its views share. Owns all of it.
/// Every operation that changes what is drawn ends with one redraw of all views; those that change
/// the level also mark it modified. AddBrush, RefreshColors, ApplyShowFilter, ParseAllOrigins and
/// the steps of a drag are parts of such operations and leave both to them. Lookups that find
/// nothing leave everything as it was.
class CZANDODoc : public CDocument {
 public:
  std::int32_t ToolMode = ID_TOOL_CAMERA;
  std::int32_t ShowBrush = 1;                              ///< whether the current brush is drawn
  std::int32_t SavedToolMode = ID_TOOL_MOVE_ROTATE_BRUSH;  ///< the brush tool to return to
  std::int32_t UseGrid = 0;
  std::int32_t ShowEntities = 1;
  double GridSize = 64.0;    ///< map units
  CZandoBrush WorkingBrush;  ///< never listed; additions append copies of it
  CZandoBrush* CurrentBrush = &WorkingBrush;
  CBrushList BrushList;
  CGroupList Groups;
  std::int32_t CurrentGroup = -1;
  std::int32_t ShowFilter = ID_SHOW_ALL_BRUSHES;
  std::int32_t LastDragWasRotate = 0;
  std::int32_t ShowFineGrid = 1;
  std::int32_t ShowCoarseGrid = 1;
  std::int32_t UseRotationSnap = 1;
  double RotationSnap = 341.3333333333333;  ///< rotation units: 15 degrees
  CConstructiveBsp World;
  BoxParameters LastBox;  ///< the values last used
  std::int32_t NextBrushId = 0;
  CEntList Entities;
  std::int32_t CurrentEntity = -1;
  std::int32_t BrushPicked = 0;  ///< 1 while CurrentBrush is a listed brush
  std::int32_t GroupMovementMode = 0;
  CWad2 Textures;                  ///< with the palette; nothing is loaded until Create
  CFrameDisplay* Frame = nullptr;  ///< told of changed groups and grid, when there is one

  CZANDODoc();

  /// Appends a copy of the brush, with the next id, and returns its index in the list.
  std::int32_t AddBrush(const CZandoBrush& brush);

  /// Deletes the picked brush and returns to the working brush; nothing while that is current.
  void DeleteCurrentBrush();

  [[nodiscard]] std::int32_t BrushCount() const { return BrushList.BrushCount(); }
  [[nodiscard]] CZandoBrush* FindBrushById(std::int32_t id) const;

  /// Picks the shown brush with the smallest bounds under a point of a view, whose coordinate along
  /// the view direction is 0.
  void PickBrush(const Vector& point);

  /// Makes the working brush, or one of the list, the current brush.
  void SetCurrentBrush(CZandoBrush& brush);

  enum class ListStep { Next, Previous };
  /// Makes the neighbour in the list of the picked brush the current one; at an end of the list it
  /// stays. Nothing while the working brush is current.
  void StepCurrentBrush(ListStep step);

  /// The working brush becomes a copy of the picked one, and current. Nothing while it is already.
  void CopyToCurrent();

  /// Colours of brushes and entities from their groups, then the show filter, then the frame's
  /// display of the groups. An index that names no group gives white.
  void RefreshColors();

  /// Sets which brushes and entities are shown. An index that names no group counts as a group that
  /// is not visible.
  void ApplyShowFilter();

  /// Shows by another filter, one of the ID_SHOW_... commands.
  void SetShowFilter(std::int32_t filter);

  /// Whether any brush or entity is in the multi-selection.
  [[nodiscard]] bool AnySelected() const;

  /// Removes an entity; its brushes belong to none, those of later ones follow them down. So does
  /// CurrentEntity; it becomes -1 when it was the one removed.
  void DeleteEntity(std::int32_t index);

  /// Removes the current entity; the one before it becomes current, if there is one.
  void DeleteCurrentEntity();
  void ParseAllOrigins();

  void ToggleUseGrid();

  enum class GridStep { Up, Down };
  /// Doubles the grid size, or halves it while it is at least 2. Redraws either way.
  void StepGrid(GridStep step);

  /// The working brush joins the level as solid or carving, or a picked brush changes its operation
  /// (the world is then left as it is) and is let go.
  void AddToWorld() { CombineWithWorld(kAddToWorld); }
  void SubtractFromWorld() { CombineWithWorld(kSubtractFromWorld); }

  /// A group of its own for the selection, which becomes current. Nothing asks for its name here.
  /// This and the next two do nothing without a selection, and end it.
  void CreateNewGroup();

  /// The selected brushes and entities join the current group, or leave theirs when there is none.
  /// The brushes take the group's centre as pivot.
  void AddSelectedToGroup();
  void RemoveSelectedFromGroup();

  /// A light at the origin, in the current group, becomes the current entity.
  void PlaceLight();

  /// A copy of the current entity becomes current; nothing without one.
  void CopyCurrentEntity();

  /// Another group, or -1, becomes the current one; with the filter that shows only it, other
  /// brushes are shown.
  void SetCurrentGroup(std::int32_t group);

  /// Appends the entity, in the current group and with its origin parsed, and makes it current.
  void AddEntity(CEntity entity);

  /// Shows or hides entities and their brushes.
  void ToggleShowEntities();

  /// The steps of a drag, by the distance that the mouse moved left or up, as the tool of the view
  /// reads it. The first four work on the current brush, or in group movement mode on the brushes
  /// of the current group about its centre; there may be none. A component counts only when the
  /// mask allows its axis.

  /// Moves back by so many map units.
  void MoveBrush(const Vector& back, std::uint32_t axisMask);

  /// Turns by (yaw, pitch, roll) in rotation units, which are about y, x and z.
  void RotateBrush(const Vector& angles, std::uint32_t axisMask);

  /// Lessens each scale by 0.005 a pixel; none falls below 0.1.
  void ScaleBrush(const Vector& pixels, std::uint32_t axisMask);

  /// Adds 0.005 a pixel to each shear coefficient.
  void ShearBrush(const Vector& pixels, std::uint32_t axisMask);

  /// Moves the current entity, if it has an origin, back by so many map units.
  void MoveEntity(const Vector& back, std::uint32_t axisMask);

  /// The ends of such drags: what was dragged snaps to the grid or to the rotation step, or to
  /// whole units or degrees without them, and is committed; the level counts as modified. Scales
  /// and shears do not snap. They redraw nothing.
  void EndMoveBrush(std::uint32_t axisMask, Commit commit);
  void EndRotateBrush(std::uint32_t axisMask, Commit commit);
  void EndScaleBrush() { CommitScaleOrShear(); }
  void EndShearBrush() { CommitScaleOrShear(); }

  /// Nothing without a current entity.
  void EndMoveEntity(std::uint32_t axisMask, Commit commit);

  /// Turns by these angles at once, without snapping.
  void TurnBrush(const Vector& angles, std::uint32_t axisMask);

  /// No rotation, scale or shear of the current brush; in group movement mode of the current
  /// group's own transform, when a group is current.
  void ResetBrush();

  void ToggleShowBrush();

  /// Makes the entity nearest to a point of a view the current one, if it is no more than 100 units
  /// away.
  void PickEntity(const Vector& point);

  enum class Selection { Select, Deselect };
  /// Takes what is shown and lies in a rectangle of a view into the multi-selection, or out of it:
  /// entities by their origin, brushes by their whole bounds. The coordinate along the view
  /// direction is 0 in both corners.
  void BoxSelect(const Vector& low, const Vector& high, Selection selection);

  /// From any other tool to the camera, and back to that tool.
  void ToggleCamera();

  [[nodiscard]] bool IsGroup(std::int32_t index) const {
    return index >= 0 && index < static_cast<std::int32_t>(Groups.size());
  }
  [[nodiscard]] bool IsEntity(std::int32_t index) const {
    return index >= 0 && index < static_cast<std::int32_t>(Entities.size());
  }

 private:
  [[nodiscard]] std::vector<CZandoBrush*> EditedBrushes();
  [[nodiscard]] bool EditsGroup() const { return GroupMovementMode != 0; }
  void ShowGroupOperation(CZandoBrush& brush);
  void CommitScaleOrShear();
  [[nodiscard]] double GridStepSize() const;
  void CombineWithWorld(std::int32_t operation);
  void MoveSelectionToGroup(std::int32_t group, const Vector& pivot);
  [[nodiscard]] bool PassesFilter(std::int32_t group) const;
  [[nodiscard]] std::uint32_t GroupColor(std::int32_t group) const;
  void Redraw() { UpdateAllViews(nullptr); }
};

}  // namespace zando
