#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "document/document_file.h"

/// Any bytes are read or refused with a reason, and a level that was read is the same after it was
/// saved and read once more.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const zando::LoadedDocument first = zando::ReadDocument(text);
  if ((first.document == nullptr) == first.error.empty()) std::abort();
  if (!first.document) return 0;
  const std::string written = zando::WriteDocument(*first.document);
  const zando::LoadedDocument second = zando::ReadDocument(written);
  if (!second.document || zando::WriteDocument(*second.document) != written) std::abort();
  return 0;
}
