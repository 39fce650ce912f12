#include "platform/file_calls.h"

#include <sys/xattr.h>
#include <unistd.h>

namespace zando {

ssize_t CFileCalls::Write(int file, std::string_view bytes) const {
  return ::write(file, bytes.data(), bytes.size());
}

int CFileCalls::Flush(int file) const { return ::fsync(file); }

int CFileCalls::ChangeOwner(int file, uid_t owner, gid_t group) const {
  return ::fchown(file, owner, group);
}

int CFileCalls::SetAttribute(int file, const char* name, std::string_view value) const {
  return ::fsetxattr(file, name, value.data(), value.size(), 0);
}

}  // namespace zando
