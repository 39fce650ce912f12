#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "formats/map_cleaner.h"
#include "formats/map_reader.h"

/// Whatever is cleaned is a map of the plain form: it is read, holds no odd place, and cleaning it
/// once more changes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const zando::CleanedMap cleaned = zando::CleanMap({reinterpret_cast<const char*>(data), size});
  const auto map = zando::ReadMap(cleaned.text);
  if (!map || map->report.oddPlaces != 0) std::abort();
  const zando::CleanedMap again = zando::CleanMap(cleaned.text);
  if (!again.report.IsEmpty() || again.text != cleaned.text) std::abort();
  return 0;
}
