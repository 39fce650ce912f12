#include "app/level_commands.h"

#include <filesystem>
#include <string>

#include "dialogs/create_box_dlg.h"
#include "dialogs/group_attributes_dlg.h"
#include "document/brush_edits.h"
#include "document/group_edits.h"
#include "formats/map_writer.h"
#include "platform/text.h"

namespace zando {

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
  const FileRequest request{
      .kind = FileRequest::Kind::Save,
      .title = "Export to Quake (MAP)",
      .extension = "MAP",
      .filter = "Map Files (*.map)|*.map|All Files (*.*)|*.*||",
      .proposal = std::filesystem::path(level.document.GetPathName()).replace_extension()};
  const auto path = level.desktop.ChooseFile(request);
  if (!path) return;
  MapExportReport report;
  const std::string error =
      ExportMap(level.document.GetLevel(), *path, level.settings.WadPath.string(), &report);
  level.desktop.SetStatusText(error.empty()
                                  ? FileNameText(*path) + ": " + DescribeExport(report)
                                  : "Cannot write " + PathText(*path) + ": " + ToLatin1(error));
}

}  // namespace zando
