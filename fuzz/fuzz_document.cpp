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
  const auto first = zando::ReadDocument(text);
  if (!first && first.Error().empty()) std::abort();
  if (!first) return 0;
  const std::string written = zando::WriteDocument(*first->document);
  const auto second = zando::ReadDocument(written);
  if (!second || zando::WriteDocument(*second->document) != written) std::abort();
  return 0;
}
