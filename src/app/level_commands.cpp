#include "app/level_commands.h"

#include <filesystem>
#include <string>

#include "app/status_text.h"
#include "dialogs/create_box_dlg.h"
#include "dialogs/group_attributes_dlg.h"
#include "document/brush_edits.h"
#include "document/group_edits.h"
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

void CreateCube(ActiveLevel& level) {
  const auto box = CCreateBoxDlg(level.document.State().LastBox).Run(level.desktop);
  if (box) GenerateBox(level.document, *box);
}

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
