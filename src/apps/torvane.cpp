// `torvane`: the station's companion on the command line.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <iostream>

#include "apps/completion.h"
#include "cli/command/commands.h"
#include "host/files/environment.h"
#include "host/system/command_line.h"

namespace torvane {

namespace {

void AddCommonOptions(CLI::App& app, CommonOptions& options) {
  // A variable counts only where the option is not given. The parser's own way would read it for each
  // command, those that are not run as well, behind the options.
  options.home = EnvironmentText("TORVANE_HOME");
  options.store = EnvironmentText("TORVANE_STORE");
  const CLI::Validator named([](std::string& name) { return std::string(name.empty() ? "is empty" : ""); },
                             "");
  app.add_option("--home", options.home, "The station's folder [TORVANE_HOME, that of the window's station]")
      ->check(named)
      ->type_name(kFolderName);
  app.add_option("--store", options.store, "Settings in this INI file [TORVANE_STORE, the user's own store]")
      ->check(named)
      ->type_name(kFileName);
  app.add_option("--locale", options.locale, "The computer's decimal sign: point or comma")
      ->check(CLI::IsMember({"point", "comma"}));
  app.add_option("--now", options.now, "\"YYYY-MM-DD hh:mm:ss\": the time of the run [the clock]");
}

// Of the commands that calculate.
void AddSettings(CLI::App& app, CommonOptions& options) {
  app.add_option("--setting", options.settings, "KEY=VALUE: this run's value of a setting or calibration key")
      ->allow_extra_args(false);
}

// Of those that open a design.
void AddDesignOptions(CLI::App& app, CommonOptions& options) {
  AddSettings(app, options);
  app.add_option("--field", options.fields, "NAME=TEXT: a field's text, set after the design is open")
      ->allow_extra_args(false);
}

struct Arguments {
  CommonOptions common;
  std::vector<std::string> designs;
  std::string design, other;
  std::string out, map;
  bool json = false;
  bool brief = false;
  std::string section, key, value;
  std::string script;
  bool trace = false;
  int row = 0;
  PatternOptions patterns;
  RestartOptions restart;
  LaminateOptions laminate;
  std::string problem;
  PostOptions post;
  std::string shell;
};

using Command = std::function<int(Computer&)>;

void AddDesigns(CLI::App& command, Arguments& a) {
  AddDesignOptions(command, a.common);
  command.add_option("DESIGN", a.designs, "Design files (.t2d, .t4d)")->required()->type_name(kDesignName);
}

void AddDesign(CLI::App& command, Arguments& a) {
  AddDesignOptions(command, a.common);
  command.add_option("DESIGN", a.design, "The design file")->required()->type_name(kDesignName);
}

void AddLaminate(CLI::App* command, Arguments& a) {
  AddDesignOptions(*command, a.common);
  CLI::Option* design = command->add_option("DESIGN", a.design, "The design file")->type_name(kDesignName);
  LaminateOptions& l = a.laminate;
  command->add_option("--pressure", l.pressure, "Inner pressure to bear, such as 20bar [MPa or psi]");
  command->add_option("--force", l.force, "Axial pull, such as 5kN; a push is negative [N or lbf]");
  command->add_option("--torque", l.torque, "Torque to bear [Nm or lbf ft]");
  command->add_option("--moment", l.moment, "Bending moment to bear [Nm or lbf ft]");
  command->add_flag("--open", l.open, "The pressure does not pull at the ends");
  command->add_option("--tow", l.tow, "A tow of the materials in the place of the design's");
  command->add_option("--resin", l.resin, "A resin, likewise");
  command->add_option("--ply", l.ply, "A ply measured as a whole, in the place of both");
  command->add_flag("--json", l.json, "All figures as one JSON object, in the SI's base units");
  command->add_option("--case", a.problem, "Work out the laminate problem of this JSON file instead")
      ->type_name(kFileName)
      ->excludes(design);
}

void AddCommands(CLI::App& app, Arguments& a, Command& chosen) {
  const auto add = [&](CLI::App& parent, const char* name, const char* help, Command run) {
    CLI::App* command = parent.add_subcommand(name, help);
    command->callback([&chosen, run = std::move(run)] { chosen = run; });
    AddCommonOptions(*command, a.common);
    return command;
  };

  CLI::App* gcode = add(app, "gcode", "Write the programs of designs into TV_G-Code_Files",
                        [&a](Computer& c) { return RunGCode(c, a.designs, a.out == "-"); });
  AddDesigns(*gcode, a);
  gcode->add_option("--out", a.out, "-: to standard output instead")->check(CLI::IsMember({"-"}));

  CLI::App* info = add(app, "info", "Show the figures of designs", [&a](Computer& c) {
    return RunInfo(c, a.designs, a.json ? InfoForm::Json : a.brief ? InfoForm::Brief : InfoForm::Table);
  });
  AddDesigns(*info, a);
  info->add_flag("--json", a.json, "Every field as one JSON object");
  info->add_flag("--brief", a.brief, "A line for each design");

  CLI::App* prove = add(app, "prove", "Prove the programs of designs without a machine",
                        [&a](Computer& c) { return RunProve(c, a.designs, a.json, a.map); });
  AddDesigns(*prove, a);
  prove->add_flag("--json", a.json, "All figures as one JSON object a design");
  prove->add_option("--map", a.map, "The bands on each place of the part: a .csv or a .vtk file")
      ->type_name(kFileName);

  CLI::App* diff = add(app, "diff", "Tell what two designs or programs wind differently",
                       [&a](Computer& c) { return RunDiff(c, a.design, a.other, a.json); });
  AddDesignOptions(*diff, a.common);
  diff->add_option("BEFORE", a.design, "A design or a program")->required()->type_name(kFileName);
  diff->add_option("AFTER", a.other, "Another one")->required()->type_name(kFileName);
  diff->add_flag("--json", a.json, "As one JSON object");

  CLI::App* restart = add(app, "restart", "Write the program that winds on from a pass of another",
                          [&a](Computer& c) { return RunRestart(c, a.restart); });
  restart->add_option("PROGRAM", a.restart.program, "The program that was wound")
      ->required()
      ->type_name(kFileName);
  restart->add_option("--layer", a.restart.layer, "The layer to begin with")->required();
  restart->add_option("--pass", a.restart.pass, "Its pass to begin with")->required();
  restart
      ->add_option("--out", a.restart.out, "The file to write [NAME-RESTART beside the station's programs]")
      ->type_name(kFileName);

  AddLaminate(add(app, "laminate", "Tell what a design's part will be: wall, mass, stiffness, strength",
                  [&a](Computer& c) {
                    if (!a.problem.empty()) return RunLaminateCase(c, a.problem);
                    if (a.design.empty()) throw UsageError{"laminate takes a design, or a problem by --case"};
                    return RunLaminate(c, a.design, a.laminate);
                  }),
              a);

  CLI::App* post = add(app, "post", "Write a program for another winder's controller",
                       [&a](Computer&) { return RunPost(a.post); });
  post->add_option("PROGRAM", a.post.program, "The station's program (.T2G, .T4G)")
      ->required()
      ->type_name(kFileName);
  post->add_option("--machine", a.post.machine, "linuxcnc, grbl, grblhal, marlin, or a file (.json)")
      ->required()
      ->type_name(kFileName);
  post->add_option("--out", a.post.out, "The file to write [beside the program]")->type_name(kFileName);
  post->add_option("--endless", a.post.endlessTurns, "Turns to and fro of a run without end [10]")
      ->check(CLI::Range(1, 10000));

  CLI::App* convert = add(app, "convert", "Open a design and save it under another name",
                          [&a](Computer& c) { return RunConvert(c, a.design, a.out); });
  AddDesign(*convert, a);
  convert->add_option("OUT", a.out, "The file to write")->required()->type_name(kFileName);

  CLI::App* patterns = add(app, "patterns", "List the winding patterns that close on a part",
                           [&a](Computer& c) { return RunPatterns(c, a.patterns); });
  patterns->add_option("--diameter", a.patterns.diameter, "Of the mandrel")->required();
  patterns->add_option("--band", a.patterns.band, "Width of the filament band")->required();
  patterns->add_option("--length", a.patterns.length, "Of a traverse")->required();
  patterns->add_option("--wrap", a.patterns.wrap, "End wrap angle, degrees [180]");
  patterns->add_option("--limit", a.patterns.limit, "Patterns below this winding angle, degrees [25]");
  patterns->add_option("--opening", a.patterns.opening, "Polar opening diameter [0]");
  AddSettings(*patterns, a.common);
  patterns->add_flag("--mm", a.patterns.millimetres, "Lengths are millimetres, not inches");
  patterns->add_flag("--json", a.patterns.json, "As one JSON object");

  CLI::App* preview = add(app, "preview", "Draw a row's winding pattern into an SVG file",
                          [&a](Computer& c) { return RunPreview(c, a.design, a.row, a.out); });
  AddDesign(*preview, a);
  preview->add_option("--row", a.row, "The layer row")->required();
  preview->add_option("--out", a.out, "The picture to write")->required()->type_name(kFileName);

  CLI::App* setting = app.add_subcommand("setting", "The station's settings");
  setting->require_subcommand(1);
  add(*setting, "list", "All known keys with their values, defaults and meaning",
      [](Computer& c) { return RunSettingList(c); });
  CLI::App* get =
      add(*setting, "get", "Print a value", [&a](Computer& c) { return RunSettingGet(c, a.section, a.key); });
  CLI::App* set = add(*setting, "set", "Store a value",
                      [&a](Computer& c) { return RunSettingSet(c, a.section, a.key, a.value); });
  for (CLI::App* command : {get, set}) {
    command->add_option("SECTION", a.section, "Settings, or a calibration section")->required();
    command->add_option("KEY", a.key, "The key")->required();
  }
  set->add_option("VALUE", a.value, "Its text")->required();

  CLI::App* script = add(app, "script", "Drive the whole station by lines of text",
                         [&a](Computer& c) { return RunScript(c, a.script, a.trace); });
  script->add_option("FILE", a.script, "The script [standard input]")->type_name(kFileName);
  script->add_flag("--trace", a.trace,
                   "Print each statement that a failed number skips: its field and routine");

  // It needs no computer, so that a build can run it.
  CLI::App* completion = app.add_subcommand("completion", "Print a shell's completion of this command line");
  completion->add_option("SHELL", a.shell, "bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish"}));
}

// The status of a command whose output has left.
int Printed(int status) {
  std::cout.flush();
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0 && std::cout) return status;
  Complain("the output could not be written");
  return kFailed;
}

int Main(int argc, char** argv) {
  CLI::App app("Torvane Designer on the command line", "torvane");
  app.allow_windows_style_options(false);  // a path may begin with a slash there too
  app.set_version_flag("--version", "torvane " TORVANE_VERSION, "Print the version and leave");
  app.require_subcommand(1);
  Arguments arguments;
  Command chosen;
  AddCommands(app, arguments, chosen);
  try {
    std::vector<std::string> words = ProgramArguments(argc, argv);
    std::reverse(words.begin(), words.end());  // as this parser takes them
    app.parse(words);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kUsage;
  }
  if (!arguments.shell.empty()) {
    std::cout << CompletionFor(app, arguments.shell);
    return Printed(kDone);
  }
  try {
    Computer computer(arguments.common);
    return Printed(chosen(computer));
  } catch (const UsageError& error) {
    Complain(error.reason);
    return kUsage;
  } catch (const CannotGoOn& error) {
    Complain(error.reason);
    return kFailed;
  } catch (const std::exception& error) {
    Complain(error.what());
    return kFailed;
  }
}

}  // namespace

}  // namespace torvane

int main(int argc, char** argv) {
  try {
    return torvane::Main(argc, argv);
  } catch (...) {
    return torvane::kFailed;
  }
}
