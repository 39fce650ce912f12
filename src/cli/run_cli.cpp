#include "cli/run_cli.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <map>
#include <optional>

#include "cli/export_commands.h"
#include "cli/import_commands.h"
#include "cli/input_files.h"
#include "cli/picture_arguments.h"
#include "cli/script_words.h"
#include "cli/subcommands.h"
#include "cli/texture_commands.h"

namespace zando {
namespace {

constexpr const char* kLevelFile = "level, a .3dz file";

/// The arguments of the subcommands, as parsed, and the subcommand to run once all is parsed.
struct Request {
  std::string input;
  std::string output;
  std::string level;
  ExportOptions exported;
  bool json = false;
  bool quick = false;
  bool optimal = false;
  bool water = false;
  ImportOptions import;
  PictureRequest picture;
  TextureRequest textures;
  std::optional<std::string> textureFolder;
  Warn warn;
  std::function<void(std::ostream&)> run;
};

void AddInfo(CLI::App& app, Request& request) {
  CLI::App* info = app.add_subcommand("info", "Tell what a level holds");
  info->add_option("LEVEL", request.input, kLevelFile)->required();
  info->add_flag("--json", request.json, "as JSON");
  info->callback([&request] {
    request.run = [&request](std::ostream& out) {
      ShowInfo(request.input, request.json ? InfoFormat::Json : InfoFormat::Text, out,
               request.warn);
    };
  });
}

void AddRebuild(CLI::App& app, Request& request) {
  CLI::App* rebuild = app.add_subcommand("rebuild", "Build the world of a level anew");
  CLI::Option* quick = rebuild->add_flag("--quick", request.quick, "replay the brushes one by one");
  rebuild
      ->add_flag("--optimal", request.optimal,
                 "clip all faces first, then build a tree of the visible ones (default)")
      ->excludes(quick);
  rebuild->add_flag("--water", request.water, "build water brushes too");
  rebuild->add_option("IN", request.input, kLevelFile)->required();
  rebuild->add_option("OUT", request.output, "where the level is saved")->required();
  rebuild->callback([&request] {
    request.run = [&request](std::ostream& out) {
      RebuildLevel(request.input, request.output,
                   request.quick ? RebuildKind::Quick : RebuildKind::Optimal,
                   request.water ? WaterBrushes::Build : WaterBrushes::Skip, out, request.warn);
    };
  });
}

void AddReportOption(CLI::App& app, ReportFormat& format, const std::string& what) {
  static const std::map<std::string, ReportFormat> kFormats{{"text", ReportFormat::Text},
                                                            {"json", ReportFormat::Json}};
  app.add_option("--report", format, what + ", as text (default) or json")
      ->transform(CLI::CheckedTransformer(kFormats));
}

/// What all exports are told.
void AddExportOptions(CLI::App& app, Request& request) {
  AddReportOption(app, request.exported.report, "what was written and left out");
  app.add_flag("--strict", request.exported.strict,
               "fail, and write nothing, when something shown would be left out");
  app.add_option("IN", request.input, kLevelFile)->required();
}

void AddExportMap(CLI::App& app, Request& request) {
  CLI::App* exporter = app.add_subcommand("export-map", "Export a level for the game's tools");
  exporter->add_option("--wad", request.exported.wad, "texture archive that the level names")
      ->capture_default_str();
  AddExportOptions(*exporter, request);
  exporter->add_option("OUT", request.output, "the .map file to write")->required();
  exporter->callback([&request] {
    request.run = [&request](std::ostream& out) {
      ExportMapFile(request.input, request.output, request.exported, out, request.warn);
    };
  });
}

void AddExport3Dm(CLI::App& app, Request& request) {
  CLI::App* exporter = app.add_subcommand("export-3dm", "Export the visible polygons of the world");
  AddExportOptions(*exporter, request);
  exporter->add_option("OUT", request.output, "the .3dm file to write")->required();
  exporter->callback([&request] {
    request.run = [&request](std::ostream& out) {
      Export3DmFile(request.input, request.output, request.exported, out, request.warn);
    };
  });
}

void AddImport(CLI::App& app, Request& request) {
  CLI::App* importer = app.add_subcommand("import-map", "Read a map of the game into a new level");
  importer->add_flag_callback(
      "--clean", [&request] { request.import.cleaning = MapCleaning::Always; },
      "rewrite a map of a newer form into the plain one first");
  AddReportOption(*importer, request.import.report, "what was read and skipped");
  importer->add_option("IN", request.input, "a .map file")->required();
  importer->add_option("OUT", request.output, "where the level is saved")->required();
  importer->callback([&request] {
    request.run = [&request](std::ostream& out) {
      ImportLevel(request.input, request.output, request.import, out, request.warn);
    };
  });
}

void AddConvert(CLI::App& app, Request& request) {
  CLI::App* convert = app.add_subcommand(
      "convert",
      "Convert by extension: .3dz to .3dz loads and saves, .3dz to .map and .3dm exports, .map to "
      ".3dz imports");
  convert->add_option("IN", request.input, "a .3dz or .map file")->required();
  convert->add_option("OUT", request.output, "a .3dz, .map or .3dm file")->required();
  convert->callback([&request] {
    if (!CanConvert(request.input, request.output)) {
      throw CLI::ValidationError("convert",
                                 "can convert .3dz to .3dz, .map and .3dm, and .map to .3dz, not " +
                                     request.input + " to " + request.output);
    }
    request.run = [&request](std::ostream& out) {
      ConvertFile(request.input, request.output, out, request.warn);
    };
  });
}

void AddRun(CLI::App& app, Request& request) {
  CLI::App* run = app.add_subcommand("run", "Run a script that builds a level");
  run->add_option("--level", request.level, "start from this level, not from a new one");
  run->add_option("SCRIPT", request.input, "a .zscript file")->required();
  run->add_option("OUT", request.output, "where the level is saved")->required();
  run->callback([&request] {
    request.run = [&request](std::ostream& out) {
      RunScriptFile(request.input, request.level, request.output, out, request.warn);
    };
  });
}

/// An option that is read by `take`, which throws CScriptError when the text is wrong.
CLI::Option* AddText(CLI::App& app, const std::string& name, const std::string& help,
                     const std::string& form, std::function<void(const std::string&)> take) {
  const auto read = [name, take = std::move(take)](const std::string& text) {
    try {
      take(text);
    } catch (const CScriptError& error) {
      throw CLI::ValidationError(name, error.what());
    }
  };
  return app.add_option_function<std::string>(name, read, help)->type_name(form);
}

void CheckPicture(const PictureRequest& picture) {
  if (IsOrthographic(picture.kind)) {
    if (picture.angles) {
      throw CLI::ValidationError("--angles", "are for wireframe, solid and texture only");
    }
  } else if (picture.zoom) {
    throw CLI::ValidationError("--zoom", "is for top, side and front only");
  }
  if (picture.palette && !ShowsSurfaces(picture.kind)) {
    throw CLI::ValidationError("--palette", "is for solid and texture only");
  }
}

void AddRender(CLI::App& app, Request& request) {
  static const std::map<std::string, ViewKind> kKinds{
      {"top", ViewKind::Top},     {"side", ViewKind::Side},
      {"front", ViewKind::Front}, {"wireframe", ViewKind::Wireframe},
      {"solid", ViewKind::Solid}, {"texture", ViewKind::Texture}};
  PictureRequest& picture = request.picture;
  CLI::App* render = app.add_subcommand("render", "Draw a level into a PNG file");
  AddText(*render, "--view", "top, side, front, wireframe (default), solid or texture", "VIEW",
          [&picture](const std::string& text) {
            const auto found = kKinds.find(text);
            if (found == kKinds.end()) {
              throw CScriptError("expected top, side, front, wireframe, solid or texture, not '" +
                                 text + '\'');
            }
            picture.kind = found->second;
          });
  AddText(*render, "--size", "of the picture in pixels, each from 1 to 16384 (1024x768)",
          "WIDTHxHEIGHT", [&picture](const std::string& text) {
            const PictureSize size = ParsePictureSize(text);
            picture.width = size.width;
            picture.height = size.height;
          });
  AddText(*render, "--at", "the eye, or the middle of a top, side or front view", "X,Y,Z",
          [&picture](const std::string& text) { picture.at = ParsePlace(text); });
  AddText(*render, "--angles", "where the eye looks, in degrees; not for top, side and front",
          "YAW,PITCH,ROLL",
          [&picture](const std::string& text) { picture.angles = ParseAngles(text); });
  AddText(*render, "--zoom", "pixels per map unit of a top, side or front view, 0.001 to 1000", "S",
          [&picture](const std::string& text) { picture.zoom = ParseZoom(text); });
  render->add_option("--palette", picture.palette,
                     "colours of a solid or texture view, a file of 768 bytes (built in)");
  render->add_flag("--no-grid{false}", picture.grid, "no grid and no axes of the world");
  render->add_option("LEVEL", request.input, kLevelFile)->required();
  render->add_option("OUT", request.output, "the .png file to write")->required();
  render->callback([&request] {
    CheckPicture(request.picture);
    request.run = [&request](std::ostream& out) {
      RenderLevel(request.input, request.output, request.picture, out, request.warn);
    };
  });
}

/// File names and the reasons of the system may hold anything; the message stays one line.
std::string OneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
  return text;
}

int Fail(std::ostream& err, const std::string& reason, int status = kCliFailed) {
  err << OneLine(reason) << '\n';
  return status;
}

void AddTextures(CLI::App& app, Request& request) {
  CLI::App* textures = app.add_subcommand("textures", "List the textures of a WAD2 archive");
  textures->add_option("--palette", request.textures.palette,
                       "palette file of 768 bytes, instead of the built-in one");
  textures->add_option("--png", request.textureFolder,
                       "write each texture into this folder, as NAME.png");
  textures->add_option("ARCHIVE", request.textures.archive, "a .wad file")->required();
  textures->callback([&request] {
    request.textures.warn = request.warn;
    request.run = [&request](std::ostream& out) {
      if (request.textureFolder) {
        WriteTextures(request.textures, *request.textureFolder, out);
      } else {
        ListTextures(request.textures, out);
      }
    };
  });
}

/// Prints the help or the version that was asked for, or says what is wrong with the arguments.
int EndParsing(const CLI::App& app, const CLI::ParseError& error, const std::string& first,
               std::ostream& out, std::ostream& err) {
  if (error.get_exit_code() == 0) {
    app.exit(error, out, err);
    return kCliDone;
  }
  // The parser would only miss a subcommand, and not name the word that is none.
  const bool unknown = !first.empty() && !first.starts_with('-') && app.get_subcommands().empty();
  const std::string reason = unknown ? "unknown subcommand '" + first + "'" : error.what();
  return Fail(err, reason + " (zando-cli --help shows what there is)", kCliWrongUsage);
}

}  // namespace

int RunCli(std::vector<std::string> arguments, std::ostream& out, std::ostream& err) {
  CLI::App app("Build, inspect, rebuild, draw and export levels.", "zando-cli");
  app.set_version_flag("--version", "zando-cli " ZANDO_VERSION);
  app.require_subcommand(1);
  Request request;
  request.warn = [&err](const std::string& text) { err << OneLine(text) << '\n'; };
  AddInfo(app, request);
  AddRebuild(app, request);
  AddExportMap(app, request);
  AddExport3Dm(app, request);
  AddImport(app, request);
  AddConvert(app, request);
  AddRender(app, request);
  AddTextures(app, request);
  AddRun(app, request);

  const std::string first = arguments.empty() ? std::string() : arguments.front();
  std::reverse(arguments.begin(), arguments.end());
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    return EndParsing(app, error, first, out, err);
  }
  try {
    request.run(out);
  } catch (const CCommandFailure& failure) {
    return Fail(err, failure.what());
  }
  if (!out.flush()) return Fail(err, "standard output: cannot be written");
  return kCliDone;
}

}  // namespace zando
