#include "platform/file_attributes.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace zando {
namespace {

constexpr mode_t kPermissions = 07777;
constexpr const char* kAccessList = "system.posix_acl_access";

/// What the system says of a file's bytes; it is not true of others.
constexpr std::array<std::string_view, 3> kOfTheBytes{"security.capability", "security.evm",
                                                      "security.ima"};

void AddNote(CReport& notes, const std::string& what, int error) {
  notes.Add(what + " could not be kept: " + std::generic_category().message(error));
}

/// The text that a call fills, asked for its size first; none, with errno, when it fails.
template <typename Call>
std::optional<std::string> Fetch(const Call& call) {
  const ssize_t size = call(nullptr, 0);
  if (size < 0) return std::nullopt;
  if (size == 0) return std::string();
  std::string text(static_cast<std::size_t>(size), '\0');
  const ssize_t got = call(text.data(), text.size());
  if (got < 0) return std::nullopt;
  text.resize(static_cast<std::size_t>(got));
  return text;
}

std::vector<std::string> SplitAtNul(const std::string& names) {
  std::vector<std::string> result;
  for (std::size_t start = 0; start < names.size(); start += result.back().size() + 1) {
    result.emplace_back(names.c_str() + start);
  }
  return result;
}

std::optional<std::string> AttributeOf(int file, const char* name) {
  return Fetch([&](char* out, std::size_t size) { return ::fgetxattr(file, name, out, size); });
}

/// Whether the group is kept; the owner need not be.
bool CopyOwner(const struct stat& status, int file, const CFileCalls& calls, CReport& notes) {
  struct stat made {};
  if (::fstat(file, &made) != 0) made = {};
  const bool sameOwner = made.st_uid == status.st_uid;
  const bool sameGroup = made.st_gid == status.st_gid;
  if (sameOwner && sameGroup) return true;
  if (calls.ChangeOwner(file, status.st_uid, status.st_gid) == 0) return true;
  const int error = errno;
  // A group of ours can be given even when the owner cannot.
  constexpr auto kUnchanged = static_cast<uid_t>(-1);
  const bool kept =
      sameGroup || (!sameOwner && calls.ChangeOwner(file, kUnchanged, status.st_gid) == 0);
  if (!sameOwner) AddNote(notes, "its owner", error);
  if (!kept) AddNote(notes, "its group", error);
  return kept;
}

void CopyAttribute(const std::filesystem::path& from, const std::string& name, int file,
                   const CFileCalls& calls, CReport& notes) {
  const auto value = Fetch([&](char* out, std::size_t size) {
    return ::getxattr(from.c_str(), name.c_str(), out, size);
  });
  if (value && value == AttributeOf(file, name.c_str())) return;
  if (value && calls.SetAttribute(file, name.c_str(), *value) == 0) return;
  const int error = errno;
  AddNote(notes, name == kAccessList ? "its access list" : "its extended attribute " + name, error);
}

void CopyExtendedAttributes(const std::filesystem::path& from, int file, const CFileCalls& calls,
                            CReport& notes) {
  const auto list =
      Fetch([&](char* out, std::size_t size) { return ::listxattr(from.c_str(), out, size); });
  if (!list) {
    if (errno != ENOTSUP) AddNote(notes, "its extended attributes", errno);
    return;
  }
  const std::vector<std::string> names = SplitAtNul(*list);
  for (const std::string& name : names) {
    if (std::find(kOfTheBytes.begin(), kOfTheBytes.end(), name) != kOfTheBytes.end()) continue;
    CopyAttribute(from, name, file, calls, notes);
  }
  // A new file may have been given an access list by its folder.
  if (std::find(names.begin(), names.end(), kAccessList) == names.end() &&
      AttributeOf(file, kAccessList) && ::fremovexattr(file, kAccessList) != 0) {
    AddNote(notes, "its access list", errno);
  }
}

}  // namespace

void CopyAttributes(const std::filesystem::path& from, const struct stat& status, int file,
                    const CFileCalls& calls, CReport& notes) {
  // The owner first, for the system may then take permissions back; the access list before the
  // permissions, for it sets those of the group.
  const bool groupKept = CopyOwner(status, file, calls, notes);
  CopyExtendedAttributes(from, file, calls, notes);
  mode_t mode = status.st_mode & kPermissions;
  // Another group may do no more than anyone.
  if (!groupKept) mode &= ~mode_t{S_IRWXG} | (mode & S_IRWXO) << 3U;
  if (::fchmod(file, mode) != 0) AddNote(notes, "its permissions", errno);
}

}  // namespace zando
