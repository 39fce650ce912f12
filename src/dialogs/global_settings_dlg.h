#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "document/editor_settings.h"
#include "platform/desktop.h"
#include "platform/dialog.h"

namespace zando {

/// Shows and changes where levels that are opened from now on find their palette and textures.
class CGlobalSettingsDlg : public CDialog {
 public:
  CGlobalSettingsDlg(CEditorSettings& settings, CDesktop& desktop);

  /// Asks, and keeps the paths that were agreed to. One that cannot be read is kept all the same,
  /// and told of.
  void Run();

  [[nodiscard]] std::int32_t TemplateId() const override { return 148; }

 protected:
  void DoDataExchange(CDataExchange& exchange) override;
  void OnButton(ControlId id) override;

 private:
  /// A path, and the text of its field.
  struct Field {
    std::filesystem::path path;
    std::string text;

    explicit Field(std::filesystem::path shown);
    [[nodiscard]] std::filesystem::path Entered() const;
  };

  CEditorSettings& settings_;
  CDesktop& desktop_;
  Field wad_;
  Field palette_;
};

}  // namespace zando
