#include "desktop/recent_files.h"

#include <QSettings>
#include <QStringList>

#include "desktop/qt_text.h"

namespace zando {
namespace {

constexpr auto kKey = "recentFiles";

}  // namespace

std::vector<std::filesystem::path> CSettingsRecentFiles::Load() {
  const QStringList names = QSettings().value(QLatin1String(kKey)).toStringList();
  std::vector<std::filesystem::path> files;
  for (const QString& name : names) files.push_back(PathFromQt(name));
  return files;
}

void CSettingsRecentFiles::Save(const std::vector<std::filesystem::path>& files) {
  QStringList names;
  for (const std::filesystem::path& file : files) names.push_back(PathToQt(file));
  QSettings().setValue(QLatin1String(kKey), names);
}

}  // namespace zando
