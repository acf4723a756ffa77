#include "apps/completion.h"

#include <functional>
#include <sstream>
#include <utility>
#include <vector>

namespace torvane {

namespace {

// What stands behind an option, or as an argument.
struct Value {
  enum class Kind { None, Text, Words, Folder, File, Design } kind = Kind::None;
  std::string words;  // one blank between them
};

struct Switch {
  std::vector<std::string> names;  // with their dashes
  std::string help;
  Value value;
};

struct Command {
  std::string name, help;
  std::string path;  // "" of the program itself, "/setting/get"
  std::vector<Switch> switches;
  Value argument;  // of the last kind: those before it are texts
  std::vector<Command> commands;
};

// "TEXT:{point,comma}" offers its words.
Value ValueOf(const CLI::Option& option) {
  using Kind = Value::Kind;
  if (option.get_expected_max() == 0 || option.get_type_size_max() == 0) return {};
  const std::string type = option.get_type_name();
  if (type == kFolderName) return {Kind::Folder, ""};
  if (type == kFileName) return {Kind::File, ""};
  if (type == kDesignName) return {Kind::Design, ""};
  const auto begin = type.find('{'), end = type.rfind('}');
  if (begin == std::string::npos || end == std::string::npos) return {Kind::Text, ""};
  std::string words = type.substr(begin + 1, end - begin - 1);
  for (char& c : words)
    if (c == ',') c = ' ';
  return {Kind::Words, words};
}

Command Read(const CLI::App& app, const std::string& path) {
  Command command{app.get_name(), app.get_description(), path, {}, {}, {}};
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_positional()) {
      command.argument = ValueOf(*option);
      continue;
    }
    Switch made{{}, option->get_description(), ValueOf(*option)};
    for (const std::string& name : option->get_snames()) made.names.push_back("-" + name);
    for (const std::string& name : option->get_lnames()) made.names.push_back("--" + name);
    command.switches.push_back(std::move(made));
  }
  for (const CLI::App* sub : app.get_subcommands(std::function<bool(const CLI::App*)>()))
    command.commands.push_back(Read(*sub, path + "/" + sub->get_name()));
  return command;
}

void ForEach(const Command& command, const std::function<void(const Command&)>& visit) {
  visit(command);
  for (const Command& sub : command.commands) ForEach(sub, visit);
}

// Each of `escaped` gets a backslash.
std::string Escaped(std::string_view text, std::string_view escaped) {
  std::string result;
  for (const char c : text) {
    if (escaped.find(c) != std::string_view::npos) result += '\\';
    result += c;
  }
  return result;
}

// As one word of bash or zsh.
std::string Quoted(std::string_view text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

// A case pattern of the paths of all commands below the program.
std::string Paths(const Command& program) {
  std::string paths;
  ForEach(program, [&](const Command& command) {
    if (!command.path.empty()) paths += (paths.empty() ? "" : "|") + command.path;
  });
  return paths;
}

// Lines of a case in bash or zsh: what follows an option, by command and option.
std::string ValueCases(const Command& program, const std::function<std::string(const Value&)>& complete) {
  std::string cases;
  ForEach(program, [&](const Command& command) {
    for (const Switch& option : command.switches) {
      if (option.value.kind == Value::Kind::None) continue;
      std::string patterns;
      for (const std::string& name : option.names)
        patterns += (patterns.empty() ? "'" : "|'") + command.path + " " + name + "'";
      cases += "    " + patterns + ") " + complete(option.value) + "; return ;;\n";
    }
  });
  return cases;
}

std::string BashValue(const Value& value) {
  switch (value.kind) {
    case Value::Kind::Words:
      return "COMPREPLY=($(compgen -W " + Quoted(value.words) + " -- \"$word\"))";
    case Value::Kind::Folder:
      return "_torvane_files -d";
    case Value::Kind::File:
      return "_torvane_files -f";
    case Value::Kind::Design:
      return "_torvane_files -f -X '!*.[tT][24][dD]'; _torvane_files -d";
    default:
      return ":";
  }
}

std::string Bash(const Command& program) {
  std::ostringstream script;
  script << "# Completion of torvane for bash.\n"
         << "_torvane_files() {\n"
         << "  local file\n"
         << "  compopt -o filenames 2>/dev/null\n"
         << "  while IFS= read -r file; do COMPREPLY+=(\"$file\"); done < <(compgen \"$@\" -- \"$word\")\n"
         << "}\n"
         << "_torvane() {\n"
         << "  local word=${COMP_WORDS[COMP_CWORD]} at= i\n"
         << "  COMPREPLY=()\n"
         << "  for ((i = 1; i < COMP_CWORD; i++)); do\n"
         << "    case \"$at/${COMP_WORDS[i]}\" in\n"
         << "    " << Paths(program) << ") at=$at/${COMP_WORDS[i]} ;;\n"
         << "    esac\n"
         << "  done\n"
         << "  case \"$at ${COMP_WORDS[COMP_CWORD - 1]}\" in\n"
         << ValueCases(program, BashValue) << "  esac\n"
         << "  case \"$at $word\" in\n";
  ForEach(program, [&](const Command& command) {
    std::string names;
    for (const Switch& option : command.switches)
      for (const std::string& name : option.names) names += (names.empty() ? "" : " ") + name;
    script << "    '" << command.path << " '-*) COMPREPLY=($(compgen -W " << Quoted(names)
           << " -- \"$word\")) ;;\n";
    names.clear();
    for (const Command& sub : command.commands) names += (names.empty() ? "" : " ") + sub.name;
    script << "    '" << command.path << " '*) "
           << BashValue(names.empty() ? command.argument : Value{Value::Kind::Words, names}) << " ;;\n";
  });
  script << "  esac\n}\ncomplete -F _torvane torvane\n";
  return script.str();
}

std::string ZshValue(const Value& value) {
  switch (value.kind) {
    case Value::Kind::Words:
      return "compadd -- " + value.words;
    case Value::Kind::Folder:
      return "_files -/";
    case Value::Kind::File:
      return "_files";
    case Value::Kind::Design:
      return "_files -g '*.[tT][24][dD]'";
    default:
      return "_message text";
  }
}

// The entries of _describe: name and help with a colon between.
std::string ZshEntry(const std::string& name, const std::string& help) {
  return " " + Quoted(Escaped(name, ":\\") + ":" + Escaped(help, ":\\"));
}

std::string Zsh(const Command& program) {
  std::ostringstream script;
  script << "#compdef torvane\n"
         << "# Completion of torvane for zsh.\n"
         << "_torvane() {\n"
         << "  local at= i\n"
         << "  local -a entries\n"
         << "  for ((i = 2; i < CURRENT; i++)); do\n"
         << "    case $at/$words[i] in\n"
         << "    " << Paths(program) << ") at=$at/$words[i] ;;\n"
         << "    esac\n"
         << "  done\n"
         << "  case \"$at $words[CURRENT-1]\" in\n"
         << ValueCases(program, ZshValue) << "  esac\n"
         << "  case \"$at $words[CURRENT]\" in\n";
  ForEach(program, [&](const Command& command) {
    script << "    '" << command.path << " '-*) entries=(";
    for (const Switch& option : command.switches)
      for (const std::string& name : option.names) script << ZshEntry(name, option.help);
    script << ")\n      _describe -o option entries ;;\n    '" << command.path << " '*) ";
    if (command.commands.empty()) {
      script << ZshValue(command.argument) << " ;;\n";
      return;
    }
    script << "entries=(";
    for (const Command& sub : command.commands) script << ZshEntry(sub.name, sub.help);
    script << ")\n      _describe command entries ;;\n";
  });
  script << "  esac\n}\n_torvane \"$@\"\n";
  return script.str();
}

std::string FishValue(const Value& value) {
  switch (value.kind) {
    case Value::Kind::None:
      return "";
    case Value::Kind::Words:
      return " -x -a '" + value.words + "'";
    case Value::Kind::Folder:
      return " -x -a '(__fish_complete_directories)'";
    case Value::Kind::File:
      return " -r -F";
    case Value::Kind::Design:
      return " -k -x -a '(__fish_complete_suffix .t2d .t4d)'";
    default:
      return " -x";
  }
}

// Holds where the words so far lead to the command and not to one below it.
std::string FishCondition(const Command& command) {
  std::string condition, rest = command.path;
  while (!rest.empty()) {
    const auto end = rest.find('/', 1);
    condition += (condition.empty() ? "" : "; and ") +
                 ("__fish_seen_subcommand_from " + rest.substr(1, end == std::string::npos ? end : end - 1));
    rest = end == std::string::npos ? "" : rest.substr(end);
  }
  if (command.commands.empty()) return condition;
  condition += (condition.empty() ? "" : "; and ") + std::string("not __fish_seen_subcommand_from");
  for (const Command& sub : command.commands) condition += " " + sub.name;
  return condition;
}

std::string Fish(const Command& program) {
  std::ostringstream script;
  script << "# Completion of torvane for fish.\n"
         << "complete -c torvane -f\n";
  ForEach(program, [&](const Command& command) {
    const std::string start = "complete -c torvane -n '" + FishCondition(command) + "'";
    const auto described = [](const std::string& help) { return " -d '" + Escaped(help, "'\\") + "'"; };
    for (const Switch& option : command.switches) {
      script << start;
      for (const std::string& name : option.names)
        script << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
      script << FishValue(option.value) << described(option.help) << "\n";
    }
    for (const Command& sub : command.commands)
      script << start << " -a " << sub.name << described(sub.help) << "\n";
    const Value::Kind kind = command.argument.kind;
    if (kind != Value::Kind::None && kind != Value::Kind::Text)
      script << start << FishValue(command.argument) << "\n";
  });
  return script.str();
}

}  // namespace

std::string CompletionFor(const CLI::App& app, std::string_view shell) {
  const Command program = Read(app, "");
  if (shell == "bash") return Bash(program);
  if (shell == "zsh") return Zsh(program);
  return shell == "fish" ? Fish(program) : "";
}

}  // namespace torvane
