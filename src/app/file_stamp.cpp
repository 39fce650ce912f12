#include "app/file_stamp.h"

#include <system_error>

namespace zando {

FileStamp StampOf(const std::filesystem::path& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  if (error) return {};
  const auto time = std::filesystem::last_write_time(path, error);
  if (error) return {};
  return {FileStamp::Known{size, time}};
}

bool IsSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code error;
  if (std::filesystem::equivalent(a, b, error)) return true;
  return AbsolutePath(a) == AbsolutePath(b);
}

std::filesystem::path AbsolutePath(const std::filesystem::path& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(path, error);
  return error ? path : absolute.lexically_normal();
}

}  // namespace zando
