#pragma once

#include <filesystem>
#include <vector>

#include "app/editor_app.h"

namespace zando {

/// The recent files in the user's settings file.
class CSettingsRecentFiles : public CRecentFileStore {
 public:
  [[nodiscard]] std::vector<std::filesystem::path> Load() override;
  void Save(const std::vector<std::filesystem::path>& files) override;
};

}  // namespace zando
