#include <array>
#include <string>

#include "cli/script_commands.h"
#include "document/brush_edits.h"

namespace zando {
namespace {

/// The parameters of a line start from the defaults, whatever an earlier line set.
template <typename Parameters>
void Create(CScriptContext& context, const CScriptArguments::CKeywords& keywords,
            const Parameters& parameters) {
  keywords.Finish();
  const std::string problem = Check(parameters);
  if (!problem.empty()) throw CScriptError(problem);
  GeneratePrimitive(context.document, parameters);
}

std::int32_t StyleOf(CScriptArguments::CKeywords& keywords,
                     std::initializer_list<std::string_view> styles) {
  return static_cast<std::int32_t>(keywords.Choice("style", styles));
}

void Box(CScriptContext& context, CScriptArguments& arguments) {
  auto keywords = arguments.Keywords();
  BoxParameters box;
  box.BottomXSize = keywords.Number("x", box.BottomXSize);
  box.YSize = keywords.Number("y", box.YSize);
  box.BottomZSize = keywords.Number("z", box.BottomZSize);
  box.TopXSize = keywords.Number("top_x", box.BottomXSize);
  box.TopZSize = keywords.Number("top_z", box.BottomZSize);
  box.Style = StyleOf(keywords, {"solid", "hollow"});
  box.WallThickness = keywords.Number("wall", box.WallThickness);
  Create(context, keywords, box);
}

void Spheroid(CScriptContext& context, CScriptArguments& arguments) {
  auto keywords = arguments.Keywords();
  SpheroidParameters spheroid;
  spheroid.XSize = keywords.Number("x", spheroid.XSize);
  spheroid.YSize = keywords.Number("y", spheroid.YSize);
  spheroid.ZSize = keywords.Number("z", spheroid.ZSize);
  spheroid.HorizontalStripes = keywords.WholeNumber("horizontal", spheroid.HorizontalStripes);
  spheroid.VerticalStripes = keywords.WholeNumber("vertical", spheroid.VerticalStripes);
  spheroid.Style = StyleOf(keywords, {"solid", "hollow"});
  spheroid.WallThickness = keywords.Number("wall", spheroid.WallThickness);
  Create(context, keywords, spheroid);
}

void Cylinder(CScriptContext& context, CScriptArguments& arguments) {
  auto keywords = arguments.Keywords();
  CylinderParameters cylinder;
  cylinder.BottomXSize = keywords.Number("x", cylinder.BottomXSize);
  cylinder.YSize = keywords.Number("y", cylinder.YSize);
  cylinder.BottomZSize = keywords.Number("z", cylinder.BottomZSize);
  cylinder.TopXSize = keywords.Number("top_x", cylinder.BottomXSize);
  cylinder.TopZSize = keywords.Number("top_z", cylinder.BottomZSize);
  cylinder.BottomXOffset = keywords.Number("x_offset", cylinder.BottomXOffset);
  cylinder.BottomZOffset = keywords.Number("z_offset", cylinder.BottomZOffset);
  cylinder.TopXOffset = keywords.Number("top_x_offset", cylinder.TopXOffset);
  cylinder.TopZOffset = keywords.Number("top_z_offset", cylinder.TopZOffset);
  cylinder.Stripes = keywords.Number("stripes", cylinder.Stripes);
  cylinder.Style = StyleOf(keywords, {"solid", "hollow", "ring"});
  cylinder.WallThickness = keywords.Number("wall", cylinder.WallThickness);
  Create(context, keywords, cylinder);
}

StaircaseParameters OutlineOf(CScriptArguments::CKeywords& keywords) {
  StaircaseParameters outline;
  outline.Height = keywords.Number("height", outline.Height);
  outline.Length = keywords.Number("length", outline.Length);
  outline.Width = keywords.Number("width", outline.Width);
  return outline;
}

void Staircase(CScriptContext& context, CScriptArguments& arguments) {
  auto keywords = arguments.Keywords();
  StaircaseParameters staircase = OutlineOf(keywords);
  staircase.NumberOfStairs = keywords.Number("stairs", staircase.NumberOfStairs);
  Create(context, keywords, staircase);
}

void Ramp(CScriptContext& context, CScriptArguments& arguments) {
  auto keywords = arguments.Keywords();
  StaircaseParameters ramp = OutlineOf(keywords);
  ramp.MakeRamp = 1;
  Create(context, keywords, ramp);
}

constexpr std::array kPrimitiveCommands{
    ScriptCommand{"box", "box [x=] [y=] [z=] [top_x=] [top_z=] [style=solid|hollow] [wall=]", Box},
    ScriptCommand{"spheroid",
                  "spheroid [x=] [y=] [z=] [horizontal=] [vertical=] [style=solid|hollow] [wall=]",
                  Spheroid},
    ScriptCommand{"cylinder",
                  "cylinder [x=] [y=] [z=] [top_x=] [top_z=] [x_offset=] [z_offset=] "
                  "[top_x_offset=] [top_z_offset=] [stripes=] [style=solid|hollow|ring] [wall=]",
                  Cylinder},
    ScriptCommand{"staircase", "staircase [height=] [length=] [width=] [stairs=]", Staircase},
    ScriptCommand{"ramp", "ramp [height=] [length=] [width=]", Ramp},
};

}  // namespace

std::span<const ScriptCommand> PrimitiveCommands() { return kPrimitiveCommands; }

}  // namespace zando
