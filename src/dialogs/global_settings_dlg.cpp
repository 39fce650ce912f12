#include "dialogs/global_settings_dlg.h"

#include <filesystem>
#include <optional>

#include "platform/file_io.h"
#include "platform/text.h"

namespace zando {
namespace {

constexpr ControlId kBrowsePalette = 1090;
constexpr ControlId kBrowseWad = 1091;
constexpr ControlId kPalettePath = 1092;
constexpr ControlId kWadPath = 1093;

FileRequest RequestFor(ControlId button) {
  FileRequest request;
  request.kind = FileRequest::Kind::Open;
  const bool palette = button == kBrowsePalette;
  request.title = palette ? "Palette" : "Texture Archive";
  request.extension = palette ? "lmp" : "wad";
  request.filter = palette ? "Lump Files (*.lmp)|*.lmp|All Files (*.*)|*.*||"
                           : "Wad Files (*.wad)|*.wad|All Files (*.*)|*.*||";
  return request;
}

/// Why the file cannot be read, as a line of its own, or nothing.
std::string Complaint(const std::filesystem::path& path) {
  if (path.empty()) return {};
  const auto contents = ReadWholeFile(path);
  return contents ? std::string() : PathText(path) + ": " + ToLatin1(contents.Error()) + '\n';
}

}  // namespace

CGlobalSettingsDlg::CGlobalSettingsDlg(CEditorSettings& settings, CDesktop& desktop)
    : settings_(settings),
      desktop_(desktop),
      wadPath_(PathText(settings.WadPath)),
      palettePath_(PathText(settings.PalettePath)) {}

void CGlobalSettingsDlg::Run() {
  if (desktop_.DoModal(*this) != IDOK) return;
  // A path that the fields cannot show stays as it is unless it was edited.
  if (wadPath_ != PathText(settings_.WadPath)) settings_.WadPath = FromLatin1(wadPath_);
  if (palettePath_ != PathText(settings_.PalettePath)) {
    settings_.PalettePath = FromLatin1(palettePath_);
  }
  const std::string complaints = Complaint(settings_.PalettePath) + Complaint(settings_.WadPath);
  if (!complaints.empty()) {
    desktop_.ShowMessage(complaints + "It is kept, and read when the next level is opened.");
  }
}

void CGlobalSettingsDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(kWadPath, wadPath_);
  exchange.Text(kPalettePath, palettePath_);
}

void CGlobalSettingsDlg::OnButton(ControlId id) {
  if (id != kBrowsePalette && id != kBrowseWad) return;
  UpdateData(CDataExchange::Direction::FromControls);
  const std::optional<std::filesystem::path> chosen = desktop_.ChooseFile(RequestFor(id));
  if (chosen) (id == kBrowsePalette ? palettePath_ : wadPath_) = PathText(*chosen);
  UpdateData(CDataExchange::Direction::ToControls);
}

}  // namespace zando
