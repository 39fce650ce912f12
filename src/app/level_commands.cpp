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
#include "formats/three_dm_writer.h"
#include "platform/text.h"

namespace zando {
namespace {

/// The level's own path with another extension; empty while it has none.
std::filesystem::path MapNameOf(const CZANDODoc& document) {
  std::filesystem::path name = document.GetPathName();
  if (!name.empty()) name.replace_extension("map");
  return name;
}

/// Says in the status bar what an export came to; one that left something out stays there.
void ShowExport(CDesktop& desktop, const std::filesystem::path& path,
                const CResult<CReport>& written, const std::string& done, bool incomplete) {
  if (!written) {
    desktop.ShowFailure("Cannot write " + PathText(path) + ": " + ToLatin1(written.Error()));
  } else if (incomplete && written->IsEmpty()) {
    desktop.ShowFailure(FileNameText(path) + ": " + done);
  } else {
    ShowOutcome(desktop, FileNameText(path) + ": " + done, *written);
  }
}

}  // namespace

void EditAttributes(ActiveLevel& level) {
  CBrushAttributesDlg dialog(level.document, level.document.State().CurrentBrush, kOwnSlot);
  if (!dialog.Run(level.desktop)) level.document.UpdateAllViews(nullptr);
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
  ShowExport(level.desktop, *path, written, DescribeExport(report), report.IsIncomplete());
}

void ExportTo3Dm(ActiveLevel& level) {
  const FileRequest request{.kind = FileRequest::Kind::Save,
                            .title = "Export to 3DM",
                            .extension = "3dm",
                            .filter = {},
                            .proposal = {}};
  const auto path = level.desktop.ChooseFile(request);
  if (!path) return;
  ThreeDmReport report;
  const auto written = Export3Dm(level.document.GetLevel().World, *path, &report);
  ShowExport(level.desktop, *path, written, Describe3Dm(report), report.IsIncomplete());
}

}  // namespace zando
