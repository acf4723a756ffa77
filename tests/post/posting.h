// Programs posted in memory, and played back.
#pragma once

#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "host/temporary_folder.h"
#include "post/machine/machine.h"
#include "post/motion/motions.h"
#include "post/proof/proof.h"
#include "post/write/writer.h"

namespace torvane::post {

inline const char* const kControllers[] = {"linuxcnc", "grbl", "grblhal", "marlin"};

inline std::string MachineText(const std::string& name) {
  return Bytes(std::filesystem::path(SOURCE_FOLDER) / "machines" / (name + ".json"));
}

inline Machine MachineNamed(const std::string& name) {
  Result<Machine> machine = ReadMachine(MachineText(name));
  EXPECT_TRUE(machine) << machine.reason();
  return machine ? machine.Take() : Machine();
}

// With another text in the place of one that must be there.
inline Result<Machine> MachineWith(const std::string& name, const std::string& from, const std::string& to) {
  std::string text = MachineText(name);
  const auto at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return ReadMachine(at == std::string::npos ? text : text.replace(at, from.size(), to));
}

// What came of posting: the text, or why there is none.
struct Posted {
  std::string text, refusal;
  std::vector<std::string> notes;
};

inline Posted Post(const std::string& program, const Machine& machine, int endlessTurns = 2) {
  Posted posted;
  Writer writer(machine, "part.T2G", [&](std::string_view bytes) {
    posted.text += bytes;
    return true;
  });
  Motions motions(writer, endlessTurns);
  motions.Take(program);
  const Outcome motionsEnd = motions.Finish(), writerEnd = writer.Finish();
  posted.refusal = !writerEnd ? writerEnd.reason() : !motionsEnd ? motionsEnd.reason() : "";
  posted.notes = motions.LeftOut();
  for (const std::string& note : writer.Notes()) posted.notes.push_back(note);
  return posted;
}

// Why the text is not what the program does; empty where it is.
inline std::string Differs(const std::string& program, const Machine& machine, const std::string& text,
                           int endlessTurns = 2) {
  std::istringstream lines(text);
  Proof proof(machine, [&](std::string& line) {
    if (!std::getline(lines, line)) return false;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return true;
  });
  Motions motions(proof, endlessTurns);
  motions.Take(program);
  const Outcome motionsEnd = motions.Finish(), proofEnd = proof.Finish();
  return !proofEnd ? proofEnd.reason() : !motionsEnd ? motionsEnd.reason() : "";
}

}  // namespace torvane::post
