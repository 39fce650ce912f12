#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string_view>

namespace zando {

/// The calls of the system that a save may meet the limits of. A test can stand in for them. Each
/// returns what the call returns: -1 for a failure, which errno tells.
class CFileCalls {
 public:
  CFileCalls() = default;
  CFileCalls(const CFileCalls&) = delete;
  CFileCalls& operator=(const CFileCalls&) = delete;
  virtual ~CFileCalls() = default;

  [[nodiscard]] virtual ssize_t Write(int file, std::string_view bytes) const;
  [[nodiscard]] virtual int Flush(int file) const;
  [[nodiscard]] virtual int ChangeOwner(int file, uid_t owner, gid_t group) const;
  [[nodiscard]] virtual int SetAttribute(int file, const char* name, std::string_view value) const;
};

}  // namespace zando
