#pragma once

#include <QFile>
#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

namespace zando {

/// The title of the main window and of messages.
inline constexpr auto kProgramName = "ZANDO";

/// Text of the core is 8-bit and crosses byte for character, so that no byte of a level is lost.
[[nodiscard]] inline QString TextToQt(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string TextFromQt(const QString& text) {
  return text.toLatin1().toStdString();
}

/// File names are shown as the file system spells them.
[[nodiscard]] inline QString PathToQt(const std::filesystem::path& path) {
  return QFile::decodeName(path.c_str());
}

[[nodiscard]] inline std::filesystem::path PathFromQt(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

/// A menu line that shows the text as it is, without a letter to choose it.
[[nodiscard]] inline QString EscapeMarks(QString text) {
  return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// A tool tip that shows the text as it is, even when it looks like markup.
[[nodiscard]] inline QString PlainToolTip(const QString& text) {
  return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped());
}

}  // namespace zando
