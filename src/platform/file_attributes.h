#pragma once

#include <sys/stat.h>

#include <filesystem>

#include "platform/file_calls.h"
#include "platform/result.h"

namespace zando {

/// Gives an open file, made a moment ago, what another file has beside its bytes: owner, group,
/// permissions, access list and extended attributes. `status` is that of the other file. What the
/// system does not allow is told.
void CopyAttributes(const std::filesystem::path& from, const struct stat& status, int file,
                    const CFileCalls& calls, CReport& notes);

}  // namespace zando
