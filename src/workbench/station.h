// The station: the one state, the computer it stands on, and the operations between them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "design/state.h"
#include "persist/two_axis_file.h"
#include "platform/platform.h"
#include "workbench/operations.h"

namespace torvane {

class Station : private ChangeOperations {
 public:
  explicit Station(const Platform& platform);
  Station(const Station&) = delete;
  Station& operator=(const Station&) = delete;

  // Starts the program: fills the lists, reads the store, reopens the last design.
  void Form_Load();

  // The operator replaces the whole text of a field and releases a key in it.
  void Type(Field& field, std::string_view text);
  // The operator picks an entry of a list, or sets a check box or option.
  void Choose(Field& field, std::string_view text);
  // Runs the operation of a control; false if there is none.
  bool Run(std::string_view control, Event event, int index = 0);

  // More than five seconds have passed since the start. Until then changes of a design calculate nothing,
  // so that the start can fill the fields.
  bool StartGuardPassed() const;

  DesignState s;
  const Platform platform;
  // Lists of the two-axis file last read.
  TwoAxisLists twoAxisLists;
  // Nobody has opened this store before, or only a station of version 2 has.
  bool FirstRunOrUpgrade = false;
  // When the start guard began.
  Moment started{};

 private:
  void Changed(const Field& field) override;

  std::map<std::pair<std::string_view, Event>, const Operation*> operations_;
  // Change operations by the place of their field in the catalogue, since every write asks for one.
  std::vector<const Operation*> changes_;
};

}  // namespace torvane
