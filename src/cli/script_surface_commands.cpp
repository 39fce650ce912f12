#include <array>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "cli/script_commands.h"
#include "document/surface_edits.h"
#include "platform/text.h"

namespace zando {
namespace {

/// A place among the faces of the current brush.
std::size_t FaceWord(const CScriptContext& context, CScriptArguments& arguments) {
  const std::int32_t face = arguments.WholeNumber();
  const std::vector<BrushFace>& faces = context.document.CurrentBrush().Faces;
  if (face < 0 || face >= std::ssize(faces)) {
    throw CScriptError("the current brush has " + Counted(std::ssize(faces), "face", "faces") +
                       ", counted from 0");
  }
  return static_cast<std::size_t>(face);
}

void Face(CScriptContext& context, CScriptArguments& arguments) {
  const std::size_t face = FaceWord(context, arguments);
  if (arguments.Choice({"texture", "own"}) == 1) {
    SetFaceSurface(context.document, face, std::nullopt);
    return;
  }
  FaceSurface surface = context.document.CurrentBrush().Faces[face].surface.value_or(FaceSurface());
  surface.texture = CheckedWord(arguments.Word(), "a texture's name");
  if (arguments.Take("offset")) {
    surface.offsetX = arguments.Number();
    surface.offsetY = arguments.Number();
  }
  if (arguments.Take("rotate")) surface.rotation = arguments.Number();
  if (arguments.Take("scale")) {
    surface.scaleX = arguments.Number();
    surface.scaleY = arguments.Number();
  }
  SetFaceSurface(context.document, face, surface);
}

void World(CScriptContext& context, CScriptArguments& arguments) {
  const std::string& key = arguments.Word();
  const std::string& value = arguments.Word();
  const std::string problem = CheckWorldKey(key, value);
  if (!problem.empty()) throw CScriptError(problem);
  SetWorldKey(context.document, key, value);
}

constexpr std::array kSurfaceCommands{
    ScriptCommand{"face", "face I own, or face I texture NAME [offset X Y] [rotate A] [scale X Y]",
                  Face},
    ScriptCommand{"world", "world KEY VALUE", World},
};

}  // namespace

std::span<const ScriptCommand> SurfaceCommands() { return kSurfaceCommands; }

}  // namespace zando
