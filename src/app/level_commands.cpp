#include "app/level_commands.h"

#include <filesystem>
#include <string>

#include "app/status_text.h"
#include "dialogs/brush_attributes_dlg.h"
#include "dialogs/bsp_manager_dlg.h"
#include "dialogs/entity_editor_dlg.h"
#include "dialogs/global_settings_dlg.h"
#include "dialogs/grid_settings_dlg.h"
#include "dialogs/group_attributes_dlg.h"
#include "document/brush_edits.h"
#include "document/group_edits.h"
#include "document/world_edits.h"
#include "formats/map_writer.h"
#include "platform/text.h"

namespace zando {
namespace {

/// The level's own path with another extension; empty while it has none.
std::filesystem::path MapNameOf(const CZANDODoc& document) {
  std::filesystem::path name = document.GetPathName();
  if (!name.empty()) name.replace_extension("map");
  return name;
}

}  // namespace

void EditAttributes(ActiveLevel& level) {
  CBrushAttributesDlg(level.document, level.document.State().CurrentBrush, kOwnSlot)
      .Run(level.desktop);
}

void EditEntities(ActiveLevel& level) { CEntityEditorDlg(level.document, level.desktop).Run(); }

void ManageBsp(ActiveLevel& level) {
  CBspManagerDlg dialog(level.document);
  if (level.desktop.DoModal(dialog) == IDOK) level.document.SetModifiedFlag();
  level.document.UpdateAllViews(nullptr);
}

void RebuildQuickly(ActiveLevel& level) {
  auto progress = level.desktop.ShowProgress("Rebuilding the world (Esc cancels)");
  const bool done =
      RebuildWorld(level.document, RebuildKind::Quick, WaterBrushes::Skip, progress.get());
  progress.reset();
  if (!done) level.desktop.SetStatusText("The rebuild was cancelled; the world is as it was");
}

void EditGrid(ActiveLevel& level) { CGridSettingsDlg(level.document).Run(level.desktop); }

void EditSettings(ActiveLevel& level) { CGlobalSettingsDlg(level.settings, level.desktop).Run(); }

void EditGroups(ActiveLevel& level) { CGroupAttributesDlg(level.document, level.desktop).Run(); }

void CreateGroup(ActiveLevel& level) {
  CreateNewGroup(level.document);
  EditGroups(level);
}

void ExportToMap(ActiveLevel& level) {
  level.document.UpdateAllViews(nullptr);
  const FileRequest request{.kind = FileRequest::Kind::Save,
                            .title = "Export to Quake (MAP)",
                            .extension = "map",
                            .filter = "Map Files (*.map)|*.map|All Files (*.*)|*.*||",
                            .proposal = MapNameOf(level.document)};
  const auto path = level.desktop.ChooseFile(request);
  if (!path) return;
  MapExportReport report;
  const auto written =
      ExportMap(level.document.GetLevel(), *path, level.settings.WadPath.string(), &report);
  if (written) {
    ShowOutcome(level.desktop, FileNameText(*path) + ": " + DescribeExport(report), *written);
  } else {
    level.desktop.ShowFailure("Cannot write " + PathText(*path) + ": " + ToLatin1(written.Error()));
  }
}

}  // namespace zando
