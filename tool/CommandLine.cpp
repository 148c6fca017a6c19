#include "CommandLine.h"

#include <CLI/CLI.hpp>

namespace {

/// A command that a build can lack.
struct OptionalCommand {
  const char* Name;
  const char* Setting;  ///< of CMake
  bool Built;
};

constexpr std::array OptionalCommands = {
    OptionalCommand{"convert", "QELVRML_CONVERT", QELVRML_HAS_CONVERT != 0},
    OptionalCommand{"view", "QELVRML_VIEWER", QELVRML_HAS_VIEW != 0},
    OptionalCommand{"picture", "QELVRML_PICTURE", QELVRML_HAS_PICTURE != 0},
};

std::string ExitStatusText() {
  std::string text = "Exit status, of the first file that something went wrong with:";
  for (const auto& [word, meaning] : ExitStatuses) {
    text += std::string("\n  ") + word + std::string(4 - std::string(word).size(), ' ') + meaning;
  }
  return text;
}

// "This build has convert and picture. It lacks view (QELVRML_VIEWER)."
std::string BuildText() {
  std::string built;
  std::string lacking;
  for (const OptionalCommand& command : OptionalCommands) {
    std::string& list = command.Built ? built : lacking;
    list += (list.empty() ? "" : ", ") + std::string(command.Name);
    if (!command.Built) list += std::string(" (") + command.Setting + ")";
  }
  std::string text = built.empty() ? "" : "This build has " + built + ".";
  if (!lacking.empty()) text += (text.empty() ? "This build lacks " : " It lacks ") + lacking + ".";
  return text;
}

// Raises an error if this build lacks the command.
void CheckBuilt(const std::string& name) {
  for (const OptionalCommand& command : OptionalCommands) {
    if (name != command.Name || command.Built) continue;
    throw CLI::ValidationError("this build has no " + name + ", configure one with -D" + command.Setting + "=ON");
  }
}

CLI::App& AddCommand(CLI::App& app, Arguments& arguments, Command command, const std::string& name,
                     std::string description) {
  for (const OptionalCommand& optional : OptionalCommands) {
    if (name == optional.Name && !optional.Built) description += " (not in this build)";
  }
  CLI::App* added = app.add_subcommand(name, description)->group("Commands");
  added->callback([&arguments, command, name] {
    CheckBuilt(name);
    arguments.Asked = command;
  });
  return *added;
}

void AddScene(CLI::App& command, Arguments& arguments) {
  command
      .add_option_function<std::string>(
          "FILE", [&arguments](const std::string& path) { arguments.Paths = {path}; },
          "A VRML file, plain or packed (gzip, PK-zip)")
      ->required()
      ->option_text(" ");
}

void AddJson(CLI::App& command, Arguments& arguments) {
  command.add_flag("--json", arguments.Json, "Print the same facts as JSON");
}

void AddTolerance(CLI::App& command, Arguments& arguments, const std::string& otherwise) {
  command
      .add_option("--tolerance", arguments.Tolerance,
                  "Largest distance between curved surfaces and their triangles, in the unit that info tells; " +
                      otherwise + " of each radius unless given")
      ->check(CLI::Validator(CLI::PositiveNumber).description(""))
      ->type_name("LENGTH");
}

void AddForce(CLI::App& command, Arguments& arguments) {
  command.add_flag("--force", arguments.Force, "Replace files that are there already");
}

// An option whose word `take` reads.
void AddWord(CLI::App& command, PictureOptions& options, const char* name, const char* type, const char* description,
             bool (*take)(const std::string&, PictureOptions&)) {
  command
      .add_option_function<std::string>(
          name, [](const std::string& /*word*/) {}, description)
      ->type_name(type)
      ->check([&options, take](const std::string& word) {
        return take(word, options) ? std::string() : "can't be \"" + word + "\"";
      });
}

void AddInfo(CLI::App& app, Arguments& arguments) {
  CLI::App& info =
      AddCommand(app, arguments, Command::Info, "info", "Tell what files hold, and what of them couldn't be read");
  info.add_option("PATH", arguments.Paths, "VRML files, plain or packed (gzip, PK-zip), or folders")
      ->required()
      ->option_text(" ");
  AddJson(info, arguments);
  info.footer(
      "One file gives a full report. Several files, or a folder, give a line for each\n"
      "file and a total. Folders and the folders in them are searched for names that\n"
      "end in .wrl, .wrz, .vrml or .vrz, or in .gz or .zip behind .wrl or .vrml, in\n"
      "any case; links to folders aren't followed. On a terminal, paths that are too\n"
      "long for a line of figures lack their start.\n"
      "\n"
      "As JSON, one file is an object; several are {\"files\": [...], \"total\": {...}}.");
}

void AddDump(CLI::App& app, Arguments& arguments) {
  CLI::App& dump = AddCommand(app, arguments, Command::Dump, "dump", "Print the model of a file as JSON");
  AddScene(dump, arguments);
  dump.footer("There is JSON for every result of the load, also when nothing was loaded.");
}

void AddMeasure(CLI::App& app, Arguments& arguments) {
  CLI::App& measure =
      AddCommand(app, arguments, Command::Measure, "measure", "Measure a scene, its groups and its objects");
  AddScene(measure, arguments);
  AddJson(measure, arguments);
  AddTolerance(measure, arguments, "a 100th");
  measure.footer(
      "Lengths, areas and volumes are in the unit that was found. A surface is closed,\n"
      "and has a volume, where each edge has a face on both sides; points that coincide\n"
      "but for rounding count as one there. Objects that aren't closed are put together\n"
      "with those of their group, and then of the group around it, that have the same\n"
      "open edges: so the side of a cylinder and its two disks make one body. Faces of\n"
      "an object that look into its inside make a cavity. Bodies that overlap count\n"
      "each.\n"
      "\n"
      "Spheres, cones, cylinders and disks are measured by formula, and a rim is one\n"
      "edge. The tolerance tells how many points and faces these have. A cylinder that\n"
      "is scaled out of round is open, since its disks stay circles.\n"
      "\n"
      "As JSON, a group that is partly open has no volume; \"bodiesVolume\" is that of\n"
      "what is closed in it, \"bodies\" and \"openSurfaces\" count both kinds, and\n"
      "\"nonManifoldEdges\" are those with more than two faces.");
}

void AddConvert(CLI::App& app, Arguments& arguments) {
  CLI::App& convert =
      AddCommand(app, arguments, Command::Convert, "convert", "Write scenes as glTF, OBJ, STL or PLY files");
  convert.add_option("PATH", arguments.Paths, "VRML files or folders; without --to the last one is the file to write")
      ->required()
      ->option_text(" ");
  convert.add_option("--to", arguments.Format, "Format of the files: glb, gltf, obj, stl or ply")
      ->check(CLI::Validator(CLI::IsMember(std::vector<std::string>(WrittenEndings.begin(), WrittenEndings.end())))
                  .description(""))
      ->type_name("FORMAT");
  convert.add_option("--into", arguments.Folder, "Folder for the files, made if need be")->type_name("FOLDER");
  AddTolerance(convert, arguments, "a 100th");
  AddForce(convert, arguments);
  convert.footer(
      "One scene is written to the file that is named last, in the format of its\n"
      "ending. Any number is written into a folder with --to and --into, the scenes\n"
      "of a folder in the folders that they stand in, several at a time. Files get the\n"
      "names of their scenes, with the ending of the format.\n"
      "\n"
      "glTF counts in metres, has Y up like VRML, and holds groups, names, materials,\n"
      "textures, lines and points; a .gltf file has its data in a .bin file beside it.\n"
      "OBJ has a .mtl file and the images of textures beside it. STL holds triangles,\n"
      "PLY triangles and points with colours. Those three keep the unit that was found.");
}

void AddView(CLI::App& app, Arguments& arguments) {
  CLI::App& view = AddCommand(app, arguments, Command::View, "view", "Make a page that shows a scene in a browser");
  AddScene(view, arguments);
  view.add_option("-o,--output", arguments.Output, "The page; FILE with the ending .html, in this folder, unless given")
      ->type_name("PAGE");
  AddTolerance(view, arguments, "a 100th");
  AddForce(view, arguments);
  view.footer("The page is one file that needs no network.");
}

void AddPicture(CLI::App& app, Arguments& arguments) {
  CLI::App& picture = AddCommand(app, arguments, Command::Picture, "picture", "Make a picture of a scene");
  AddScene(picture, arguments);
  picture.add_option("PICTURE", arguments.Output, "The PNG file to write")->required()->option_text(" ");
  AddWord(picture, arguments.Picture, "--size", "WxH", "Width and height in pixels; 1200x900 unless given", TakeSize);
  AddWord(picture, arguments.Picture, "--direction", "FROM",
          "Where the eye is: front, back, left, right, top, bottom, corner or X,Y,Z; corner unless given",
          TakeDirection);
  AddWord(picture, arguments.Picture, "--background", "COLOUR",
          "white, black, transparent or #RRGGBB; white unless given", TakeBackground);
  AddTolerance(picture, arguments, "a 500th");
  AddForce(picture, arguments);
  picture.footer(
      "The scene fills the picture, with a margin. Along one of its axes the view is\n"
      "parallel, so that sizes compare; else it is in perspective. Up is +Y, from the\n"
      "top -Z and from the bottom +Z. The light comes from the upper left of the eye\n"
      "and falls on both sides of surfaces; none falls on lines and dots, which are\n"
      "drawn darker or brighter where they'd hardly differ from the background. Black\n"
      "surfaces are a little brighter, so that their form is seen.\n"
      "\n"
      "There need be no display and no graphics card.");
}

// Without --to the last of the paths is the file to write.
void TakeConvertOutput(Arguments& arguments) {
  if (arguments.Asked != Command::Convert) return;
  if (arguments.Format.empty() != arguments.Folder.empty()) throw CLI::ValidationError("--to and --into go together");
  if (!arguments.Format.empty()) return;
  if (arguments.Paths.size() < 2) throw CLI::ValidationError("convert needs a file to write, or --to and --into");
  if (arguments.Paths.size() > 2) throw CLI::ValidationError("several scenes are written with --to and --into");
  arguments.Output = arguments.Paths.back();
  arguments.Paths.pop_back();
}

}  // namespace

std::unique_ptr<CLI::App> MakeCommandLine(Arguments& arguments) {
  auto app = std::make_unique<CLI::App>("Shows, measures and converts what VRML 1.0 and 2.0 files hold.", "qelvrml");
  app->set_help_flag("-h,--help", "Show this help");
  app->set_version_flag("--version", "qelvrml " QELVRML_VERSION, "Show the version");
  app->require_subcommand(1);
  app->failure_message([](const CLI::App* /*app*/, const CLI::Error& error) {
    return std::string("qelvrml: ") + error.what() + "; --help tells more\n";
  });
  app->get_formatter()->column_width(16);
  app->get_formatter()->label("SUBCOMMAND", "COMMAND");
  AddInfo(*app, arguments);
  AddDump(*app, arguments);
  AddMeasure(*app, arguments);
  AddConvert(*app, arguments);
  AddView(*app, arguments);
  AddPicture(*app, arguments);
  app->final_callback([&arguments] { TakeConvertOutput(arguments); });
  app->footer(BuildText() + "\n\n" + ExitStatusText());
  return app;
}
