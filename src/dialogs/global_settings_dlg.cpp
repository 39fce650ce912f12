#include "dialogs/global_settings_dlg.h"

#include <filesystem>
#include <optional>
#include <utility>

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
      wad_(settings.WadPath),
      palette_(settings.PalettePath) {}

CGlobalSettingsDlg::Field::Field(std::filesystem::path shown)
    : path(std::move(shown)), text(PathText(path)) {}

/// A path that the field cannot show whole stays as it is unless it was edited.
std::filesystem::path CGlobalSettingsDlg::Field::Entered() const {
  return text == PathText(path) ? path : std::filesystem::path(FromLatin1(text));
}

void CGlobalSettingsDlg::Run() {
  if (desktop_.DoModal(*this) != IDOK) return;
  settings_.WadPath = wad_.Entered();
  settings_.PalettePath = palette_.Entered();
  const std::string complaints = Complaint(settings_.PalettePath) + Complaint(settings_.WadPath);
  if (!complaints.empty()) {
    desktop_.ShowMessage(complaints + "It is kept, and read when the next level is opened.");
  }
}

void CGlobalSettingsDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(kWadPath, wad_.text);
  exchange.Text(kPalettePath, palette_.text);
}

void CGlobalSettingsDlg::OnButton(ControlId id) {
  if (id != kBrowsePalette && id != kBrowseWad) return;
  UpdateData(CDataExchange::Direction::FromControls);
  const std::optional<std::filesystem::path> chosen = desktop_.ChooseFile(RequestFor(id));
  if (chosen) (id == kBrowsePalette ? palette_ : wad_) = Field(*chosen);
  UpdateData(CDataExchange::Direction::ToControls);
}

}  // namespace zando
