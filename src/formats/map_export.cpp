#include "formats/map_writer.h"
#include "platform/file_io.h"

namespace zando {

std::string ExportMap(CZANDODoc& document, const std::filesystem::path& path,
                      std::string_view wadPath, MapExportReport* report) {
  return WriteFileAtomically(path, WriteMap(document, wadPath, report));
}

}  // namespace zando
