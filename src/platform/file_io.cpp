#include "platform/file_io.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <system_error>

#include "platform/file_attributes.h"
#include "platform/number_text.h"

namespace zando {
namespace {

constexpr std::size_t kChunk = std::size_t{1} << 20;
constexpr int kMostLinks = 40;
constexpr int kMostNames = 100;

Failure SystemError(int error) { return {std::generic_category().message(error)}; }
Failure LastError() { return SystemError(errno); }

/// Calls again what a signal has interrupted.
template <typename Call>
auto Retry(Call&& call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

/// An open file; closed at the end of its scope.
class CFileHandle {
 public:
  explicit CFileHandle(int descriptor) : descriptor_(descriptor) {}
  CFileHandle(const CFileHandle&) = delete;
  CFileHandle& operator=(const CFileHandle&) = delete;
  ~CFileHandle() { Close(); }

  [[nodiscard]] bool IsOpen() const { return descriptor_ != -1; }
  [[nodiscard]] int Get() const { return descriptor_; }
  bool Close() {
    if (!IsOpen()) return true;
    const bool closed = ::close(descriptor_) == 0;
    descriptor_ = -1;
    return closed;
  }

 private:
  int descriptor_;
};

CFileHandle Open(const std::filesystem::path& path, int flags, mode_t mode = 0) {
  return CFileHandle(Retry([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

/// Whether something of this kind is a file to read or to replace.
CResult<void> CheckKind(mode_t mode) {
  if (S_ISDIR(mode)) return SystemError(EISDIR);
  if (!S_ISREG(mode)) return Failure{"not an ordinary file"};
  return {};
}

/// Appends what is left of the file, however long it says it is.
bool ReadToEnd(int descriptor, std::string& bytes) {
  for (;;) {
    const std::size_t had = bytes.size();
    bytes.resize(std::max(bytes.capacity(), had + kChunk));
    const ssize_t got =
        Retry([&] { return ::read(descriptor, bytes.data() + had, bytes.size() - had); });
    bytes.resize(had + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    if (got <= 0) return got == 0;
  }
}

CResult<void> WriteAll(int descriptor, std::string_view bytes, const CFileCalls& calls) {
  while (!bytes.empty()) {
    const ssize_t done = Retry([&] { return calls.Write(descriptor, bytes); });
    if (done < 0) return LastError();
    // Nothing was wrong and nothing was written: to try again might take for ever.
    if (done == 0) return SystemError(EIO);
    bytes.remove_prefix(static_cast<std::size_t>(done));
  }
  return {};
}

/// The file that a chain of links leads to, whether it exists or not.
std::filesystem::path FollowLinks(std::filesystem::path path, std::error_code& error) {
  for (int links = 0; links < kMostLinks; ++links) {
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(path, error))) {
      error.clear();  // Other troubles show, and are told, when the file is opened.
      return path;
    }
    const std::filesystem::path target = std::filesystem::read_symlink(path, error);
    if (error) return path;
    path = path.parent_path() / target;
  }
  error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
  return path;
}

std::filesystem::path FolderOf(const std::filesystem::path& path) {
  const std::filesystem::path folder = path.parent_path();
  return folder.empty() ? std::filesystem::path(".") : folder;
}

constexpr std::string_view kTemporaryStart = ".zando-";
constexpr std::string_view kTemporaryEnd = ".tmp";

/// A name that only a concurrent save of this process, or one that was cut off, may have taken.
std::filesystem::path TemporaryName(const std::filesystem::path& folder, int attempt) {
  return folder / (std::string(kTemporaryStart) + std::to_string(::getpid()) + "-" +
                   std::to_string(attempt) + std::string(kTemporaryEnd));
}

/// The process whose temporary file has this name; none for any other name.
std::optional<pid_t> OwnerOfTemporary(std::string_view name) {
  if (!name.starts_with(kTemporaryStart) || !name.ends_with(kTemporaryEnd)) return std::nullopt;
  name.remove_prefix(kTemporaryStart.size());
  name.remove_suffix(kTemporaryEnd.size());
  const std::size_t dash = name.find('-');
  if (dash == std::string_view::npos || !ParseWholeNumber(name.substr(dash + 1))) {
    return std::nullopt;
  }
  return ParseWholeNumber(name.substr(0, dash));
}

/// A process that belongs to someone else cannot be reached, but it is there.
bool IsRunning(pid_t process) { return ::kill(process, 0) == 0 || errno != ESRCH; }

/// Removes what saves that were cut off left in the folder. What cannot be removed stays.
void RemoveStaleFiles(const std::filesystem::path& folder) {
  // The standard library's iterator would end the program where memory for a name is short.
  const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(folder.c_str()), ::closedir);
  if (!listing) return;
  while (const dirent* entry = ::readdir(listing.get())) {
    const std::string name(&entry->d_name[0]);
    const auto process = OwnerOfTemporary(name);
    if (!process || IsRunning(*process)) continue;
    const std::filesystem::path path = folder / name;
    struct stat status {};
    const bool ours = ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
                      status.st_uid == ::geteuid();
    if (ours) ::unlink(path.c_str());
  }
}

/// Fills and flushes the temporary file.
CResult<void> FillFile(CFileHandle& file, std::string_view bytes, const CFileCalls& calls) {
  if (auto written = WriteAll(file.Get(), bytes, calls); !written) return written;
  if (Retry([&] { return calls.Flush(file.Get()); }) != 0) return LastError();
  if (!file.Close()) return LastError();
  return {};
}

/// Makes the new name last through a power cut. Not every file system can.
void FlushFolder(const std::filesystem::path& folder, const CFileCalls& calls, CReport& notes) {
  const CFileHandle handle = Open(folder, O_RDONLY | O_DIRECTORY);
  if (handle.IsOpen() && Retry([&] { return calls.Flush(handle.Get()); }) == 0) return;
  notes.Add("a power cut may still undo this, for its folder could not be flushed: " +
            LastError().reason);
}

CResult<CReport> ReplaceFile(const std::filesystem::path& path, std::string_view bytes,
                             const struct stat* replaced, const CFileCalls& calls) {
  const std::filesystem::path folder = FolderOf(path);
  RemoveStaleFiles(folder);
  for (int attempt = 0; attempt < kMostNames; ++attempt) {
    const std::filesystem::path temporary = TemporaryName(folder, attempt);
    // Until it has the permissions of a file that it replaces, nobody else may look into it.
    const mode_t mode = replaced != nullptr ? 0600 : 0666;
    CFileHandle file = Open(temporary, O_WRONLY | O_CREAT | O_EXCL, mode);
    if (!file.IsOpen() && errno == EEXIST) continue;
    if (!file.IsOpen()) return LastError();
    CReport notes;
    if (replaced != nullptr) CopyAttributes(path, *replaced, file.Get(), calls, notes);
    CResult<void> done = FillFile(file, bytes, calls);
    if (done && std::rename(temporary.c_str(), path.c_str()) != 0) done = LastError();
    if (!done) {
      ::unlink(temporary.c_str());
      return Failure{done.Error()};
    }
    FlushFolder(folder, calls, notes);
    return notes;
  }
  return SystemError(EEXIST);
}

}  // namespace

CResult<std::string> ReadWholeFile(const std::filesystem::path& path) {
  // Without O_NONBLOCK, opening a pipe that nobody writes to would wait for ever.
  const CFileHandle file = Open(path, O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0) return LastError();
  if (const auto kind = CheckKind(status.st_mode); !kind) return Failure{kind.Error()};
  std::string bytes;
  try {
    if (!ReadToEnd(file.Get(), bytes)) return LastError();
  } catch (const std::bad_alloc&) {
    return SystemError(ENOMEM);
  }
  return bytes;
}

CResult<CReport> WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                                     const CFileCalls& calls) {
  std::error_code error;
  const std::filesystem::path target = FollowLinks(path, error);
  if (error) return Failure{error.message()};
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) {
    if (errno != ENOENT) return LastError();
    return ReplaceFile(target, bytes, nullptr, calls);
  }
  if (const auto kind = CheckKind(status.st_mode); !kind) return Failure{kind.Error()};
  // The folder alone would allow to replace a file that is protected against writing.
  if (::access(target.c_str(), W_OK) != 0) return LastError();
  return ReplaceFile(target, bytes, &status, calls);
}

}  // namespace zando
