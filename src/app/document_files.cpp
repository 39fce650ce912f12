// The files of levels: new, open, save, close, and the recent ones.
#include <algorithm>
#include <cstdint>
#include <string>
#include <system_error>
#include <utility>

#include "app/editor_app.h"
#include "app/status_text.h"
#include "document/document_file.h"
#include "platform/text.h"

namespace zando {
namespace {

FileRequest LevelRequest(FileRequest::Kind kind, std::string title) {
  FileRequest request;
  request.kind = kind;
  request.title = std::move(title);
  request.extension = "3dz";
  request.filter = "ZANDO Files (*.3dz)|*.3dz|All Files (*.*)|*.*||";
  return request;
}

/// The folder, or nothing when it is not there.
std::filesystem::path ExistingFolder(const std::filesystem::path& folder) {
  std::error_code error;
  return std::filesystem::is_directory(folder, error) ? folder : std::filesystem::path();
}

std::string DamageText(const std::filesystem::path& path, const CReport& damage) {
  return FileNameText(path) + " is damaged in " +
         Counted(static_cast<std::int64_t>(damage.Count()), "place", "places") + ":";
}

/// Asks before a file is replaced that may hold more than could be read of it.
std::string DamageQuestion(const std::filesystem::path& path, const CReport& damage) {
  std::string text = DamageText(path, damage);
  for (const std::string& line : damage.Lines()) text += "\n" + ToLatin1(line);
  return text + "\nWhat could not be read is lost when the file is replaced. Replace it?";
}

}  // namespace

CZANDODoc* CEditorApp::FindByPath(const std::filesystem::path& path) const {
  const auto found = std::find_if(documents_.begin(), documents_.end(), [&](const auto& document) {
    return !document->GetPathName().empty() && IsSameFile(document->GetPathName(), path);
  });
  return found == documents_.end() ? nullptr : found->get();
}

std::string CEditorApp::NameOf(const CZANDODoc& document) const {
  const auto& path = document.GetPathName();
  if (!path.empty()) return FileNameText(path);
  // While a level is being closed, the windows it still has ask for a title.
  const auto level = levels_.find(&document);
  return level == levels_.end() ? std::string() : level->second.untitledName;
}

void CEditorApp::NewDocument() {
  OpenLevel level{
      .untitledName = "ZANDO" + std::to_string(untitledCount_ + 1), .stamp = {}, .damage = {}};
  Adopt(std::make_unique<CZANDODoc>(), std::move(level));
  ++untitledCount_;
}

void CEditorApp::AskAndOpen() {
  FileRequest request = LevelRequest(FileRequest::Kind::Open, "Open");
  const CZANDODoc* active = ActiveDocument();
  const bool hasFile = active != nullptr && !active->GetPathName().empty();
  request.proposal =
      hasFile ? ExistingFolder(active->GetPathName().parent_path()) : LastUsedFolder();
  const auto path = desktop_.ChooseFile(request);
  if (path) Open(*path);
}

std::filesystem::path CEditorApp::LastUsedFolder() const {
  return recentFiles_.empty() ? std::filesystem::path()
                              : ExistingFolder(recentFiles_.front().parent_path());
}

bool CEditorApp::OpenDocument(const std::filesystem::path& path) {
  bool opened = false;
  guard_.Attempt("Open", [&] {
    desktop_.ClearFailure();
    opened = Open(path);
  });
  return opened;
}

bool CEditorApp::Open(const std::filesystem::path& path) {
  const auto absolute = AbsolutePath(path);
  if (CZANDODoc* open = FindByPath(absolute)) {
    Activate(*open);
    NoteRecentFile(open->GetPathName());
    return true;
  }
  // Taken before the file is read: what changes after that is seen as a change.
  const FileStamp stamp = StampOf(absolute);
  auto loaded = LoadDocumentFile(absolute);
  if (!loaded) {
    desktop_.ShowMessage("Cannot open " + PathText(absolute) + ": " + ToLatin1(loaded.Error()));
    return false;
  }
  const CReport damage = loaded->warnings;
  Adopt(std::move(loaded->document),
        {.untitledName = {}, .stamp = stamp, .damage = std::move(loaded->warnings)});
  NoteRecentFile(absolute);
  if (!damage.IsEmpty()) desktop_.ShowFailure(DamageText(absolute, damage) + " " + Summary(damage));
  return true;
}

bool CEditorApp::Save(CZANDODoc& document) {
  const auto& path = document.GetPathName();
  return path.empty() ? SaveAs(document) : WriteTo(document, path);
}

bool CEditorApp::SaveAs(CZANDODoc& document) {
  FileRequest request = LevelRequest(FileRequest::Kind::Save, "Save As");
  request.proposal = document.GetPathName();
  if (request.proposal.empty()) {
    request.proposal = LastUsedFolder() / LevelOf(document).untitledName;
  }
  const auto chosen = desktop_.ChooseFile(request);
  if (!chosen) return false;
  const auto path = AbsolutePath(*chosen);
  const CZANDODoc* other = FindByPath(path);
  if (other != nullptr && other != &document) {
    desktop_.ShowMessage(
        PathText(path) +
        " is open as another level. Close that one first, or choose another name.");
    return false;
  }
  return WriteTo(document, path);
}

bool CEditorApp::WriteTo(CZANDODoc& document, const std::filesystem::path& path) {
  const auto& own = document.GetPathName();
  if (!own.empty() && IsSameFile(own, path) && !MayOverwrite(document)) return false;
  const auto saved = SaveDocumentFile(document, path);
  if (!saved) {
    desktop_.ShowFailure("Cannot save " + PathText(path) + ": " + ToLatin1(saved.Error()));
    return false;
  }
  LevelOf(document).stamp = StampOf(path);
  LevelOf(document).damage = {};
  NoteRecentFile(path);
  ShowOutcome(desktop_, "Saved " + FileNameText(path), *saved);
  return true;
}

bool CEditorApp::MayOverwrite(const CZANDODoc& document) {
  const OpenLevel& level = LevelOf(document);
  const FileStamp now = StampOf(document.GetPathName());
  if (!now.known) return true;
  if (!level.damage.IsEmpty() &&
      desktop_.AskYesNo(DamageQuestion(document.GetPathName(), level.damage)) == YesNo::No) {
    return false;
  }
  if (now == level.stamp) return true;
  return desktop_.AskYesNo(PathText(document.GetPathName()) +
                           " was changed by another program. Overwrite it?") == YesNo::Yes;
}

bool CEditorApp::AskSaveChanges(CZANDODoc& document) {
  if (!document.IsModified()) return true;
  switch (desktop_.AskSaveChanges(NameOf(document))) {
    case SaveAnswer::Save:
      return Save(document);
    case SaveAnswer::Discard:
      return true;
    case SaveAnswer::Cancel:
      break;
  }
  return false;
}

void CEditorApp::OpenRecentFile(std::size_t index) {
  if (index >= recentFiles_.size()) return;
  const auto path = recentFiles_[index];
  std::error_code error;
  if (FindByPath(path) != nullptr || std::filesystem::exists(path, error) || error) {
    Open(path);
    return;
  }
  recentFiles_.erase(recentFiles_.begin() + static_cast<std::ptrdiff_t>(index));
  recentStore_.Save(recentFiles_);
  PublishRecentFiles();
  desktop_.ShowMessage(PathText(path) + " is no longer there.");
}

void CEditorApp::LoadRecentFiles() {
  for (const auto& path : recentStore_.Load()) {
    const auto absolute = AbsolutePath(path);
    const auto known = std::find(recentFiles_.begin(), recentFiles_.end(), absolute);
    if (known == recentFiles_.end() && !path.empty()) recentFiles_.push_back(absolute);
  }
  if (recentFiles_.size() > kMostRecentFiles) recentFiles_.resize(kMostRecentFiles);
  PublishRecentFiles();
}

void CEditorApp::NoteRecentFile(const std::filesystem::path& path) {
  const std::filesystem::path newest = path;
  std::erase_if(recentFiles_, [&](const auto& recent) { return IsSameFile(recent, newest); });
  recentFiles_.insert(recentFiles_.begin(), newest);
  if (recentFiles_.size() > kMostRecentFiles) recentFiles_.resize(kMostRecentFiles);
  recentStore_.Save(recentFiles_);
  PublishRecentFiles();
}

void CEditorApp::PublishRecentFiles() { window_.SetRecentFiles(recentFiles_); }

}  // namespace zando
