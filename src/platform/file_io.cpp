#include "platform/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <new>
#include <system_error>

namespace zando {
namespace {

constexpr std::size_t kChunk = std::size_t{1} << 20;
constexpr int kMostLinks = 40;
constexpr int kMostNames = 100;
constexpr mode_t kPermissions = 07777;

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

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t done = Retry([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
    if (done < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(done));
  }
  return true;
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

/// A name that only a concurrent save of this process, or one that was cut off, may have taken.
std::filesystem::path TemporaryName(const std::filesystem::path& folder, int attempt) {
  return folder / (".zando-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp");
}

/// Fills and flushes the temporary file.
CResult<void> FillFile(CFileHandle& file, std::string_view bytes, const struct stat* replaced) {
  if (replaced != nullptr && ::fchmod(file.Get(), replaced->st_mode & kPermissions) != 0) {
    return LastError();
  }
  if (!WriteAll(file.Get(), bytes)) return LastError();
  if (Retry([&] { return ::fsync(file.Get()); }) != 0) return LastError();
  if (!file.Close()) return LastError();
  return {};
}

/// Makes the new name last through a power cut. Not every file system can; the file is safe anyway.
void FlushFolder(const std::filesystem::path& folder) {
  const CFileHandle handle = Open(folder, O_RDONLY | O_DIRECTORY);
  if (handle.IsOpen()) ::fsync(handle.Get());
}

CResult<void> ReplaceFile(const std::filesystem::path& path, std::string_view bytes,
                          const struct stat* replaced) {
  const std::filesystem::path folder = FolderOf(path);
  for (int attempt = 0; attempt < kMostNames; ++attempt) {
    const std::filesystem::path temporary = TemporaryName(folder, attempt);
    CFileHandle file = Open(temporary, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (!file.IsOpen() && errno == EEXIST) continue;
    if (!file.IsOpen()) return LastError();
    CResult<void> done = FillFile(file, bytes, replaced);
    if (done && std::rename(temporary.c_str(), path.c_str()) != 0) done = LastError();
    if (done) {
      FlushFolder(folder);
    } else {
      ::unlink(temporary.c_str());
    }
    return done;
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

CResult<void> WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes) {
  std::error_code error;
  const std::filesystem::path target = FollowLinks(path, error);
  if (error) return Failure{error.message()};
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) {
    if (errno != ENOENT) return LastError();
    return ReplaceFile(target, bytes, nullptr);
  }
  if (const auto kind = CheckKind(status.st_mode); !kind) return kind;
  // The folder alone would allow to replace a file that is protected against writing.
  if (::access(target.c_str(), W_OK) != 0) return LastError();
  return ReplaceFile(target, bytes, &status);
}

}  // namespace zando
