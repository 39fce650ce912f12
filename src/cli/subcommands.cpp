#include "cli/subcommands.h"

#include <memory>
#include <string_view>
#include <system_error>

#include "cli/export_commands.h"
#include "cli/import_commands.h"
#include "cli/input_files.h"
#include "cli/level_info.h"
#include "cli/level_json.h"
#include "cli/script.h"
#include "csg/bsp_node.h"
#include "document/document_file.h"
#include "paint/png_image.h"
#include "platform/file_io.h"
#include "platform/text.h"
#include "textures/palette.h"
#include "views/camera.h"
#include "views/solid_renderer.h"
#include "views/wireframe.h"

namespace zando {
namespace {

namespace fs = std::filesystem;

/// The world's polygons under the entities, as a solid or texture view shows them.
void DrawWorld(const ViewDrawing& drawing, const CZANDODoc& document, const Palette& palette) {
  const CCamera& camera = drawing.camera;
  CSolidRenderer renderer;
  if (!renderer.SetViewport(camera.Width(), camera.Height(), palette.colors)) {
    throw CCommandFailure("there is no memory for a picture of this size");
  }
  renderer.Render(camera, document.GetLevel().World,
                  camera.Kind() == ViewKind::Solid ? RenderMode::Solid : RenderMode::Textured);
  renderer.Present(drawing.dc);
}

bool HasExtension(const fs::path& path, std::string_view extension) {
  return EqualIgnoringCase(path.extension().string(), extension);
}

bool IsLevel(const fs::path& path) { return HasExtension(path, ".3dz"); }
bool IsMap(const fs::path& path) { return HasExtension(path, ".map"); }
bool Is3Dm(const fs::path& path) { return HasExtension(path, ".3dm"); }

}  // namespace

void RefuseInput(const fs::path& input, const fs::path& output) {
  std::error_code missing;
  if (fs::equivalent(input, output, missing)) {
    throw CCommandFailure(output, "is the file to read, and is not overwritten");
  }
}

void RequireWritten(const CResult<CReport>& written, const fs::path& output, const Warn& warn) {
  if (!written) throw CCommandFailure(output, written.Error());
  WarnOf(*written, output, warn);
}

void ShowInfo(const fs::path& level, InfoFormat format, std::ostream& out, const Warn& warn) {
  const std::unique_ptr<CZANDODoc> document = ReadLevel(level, warn);
  out << (format == InfoFormat::Json ? LevelAsJson(*document)
                                     : InfoAsText(CollectInfo(document->GetLevel())));
}

void RebuildLevel(const fs::path& input, const fs::path& output, RebuildKind kind,
                  WaterBrushes water, std::ostream& out, const Warn& warn) {
  const std::unique_ptr<CZANDODoc> document = ReadLevel(input, warn);
  RebuildWorld(*document, kind, water, nullptr);
  RequireWritten(SaveDocumentFile(*document, output), output, warn);
  out << output.string() << ": " << DescribeWorld(document->GetLevel().World) << '\n';
}

bool CanConvert(const fs::path& input, const fs::path& output) {
  if (IsMap(input)) return IsLevel(output);
  return IsLevel(input) && (IsLevel(output) || IsMap(output) || Is3Dm(output));
}

void ConvertFile(const fs::path& input, const fs::path& output, std::ostream& out,
                 const Warn& warn) {
  if (IsMap(input)) {
    return ImportLevel(input, output, {.cleaning = MapCleaning::WhenNeeded}, out, warn);
  }
  if (IsMap(output)) return ExportMapFile(input, output, {}, out, warn);
  if (Is3Dm(output)) return Export3DmFile(input, output, {}, out, warn);
  RequireWritten(SaveDocumentFile(*ReadLevel(input, warn), output), output, warn);
}

void RunScriptFile(const fs::path& script, const fs::path& level, const fs::path& output,
                   std::ostream& out, const Warn& warn) {
  RefuseInput(script, output);
  const std::string text = ReadInput(script);
  const std::unique_ptr<CZANDODoc> document =
      level.empty() ? std::make_unique<CZANDODoc>() : ReadLevel(level, warn);

  const ScriptResult result = RunScript(*document, text, script.string());
  if (!result.error.empty()) throw CCommandFailure(result.error);
  for (const PendingFile& file : result.files) {
    RequireWritten(WriteFileAtomically(file.path, file.bytes), file.path, warn);
  }
  RequireWritten(SaveDocumentFile(*document, output), output, warn);
  for (const std::string& note : result.notes) out << note << '\n';
}

void RenderLevel(const fs::path& input, const fs::path& output, const PictureRequest& request,
                 std::ostream& out, const Warn& warn) {
  RefuseInput(input, output);
  // Polygons get their flat colours as they are loaded; the same level gives the same picture.
  SeedColorTags(1);
  const std::unique_ptr<CZANDODoc> document = ReadLevel(input, warn);
  const Palette palette = ReadPalette(request.palette, {});
  CCamera camera;
  FrameLevel(*document, request, camera);
  const CResult<std::string> image = PaintPng(request.width, request.height, [&](CDC& dc) {
    const ViewDrawing drawing{dc, camera};
    dc.ResetClip();
    if (request.grid && IsOrthographic(request.kind)) DrawGrid(drawing, *document);
    if (ShowsSurfaces(request.kind)) {
      DrawWorld(drawing, *document, palette);
    } else {
      DrawBrushes(drawing, *document);
    }
    if (document->State().ShowEntities != 0) DrawEntities(drawing, *document);
  });
  if (!image) throw CCommandFailure(output, image.Error());
  RequireWritten(WriteFileAtomically(output, *image), output, warn);
  out << output.string() << ": " << request.width << 'x' << request.height << " pixels\n";
}

}  // namespace zando
