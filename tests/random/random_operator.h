// An operator who does anything: random doings of every kind on a station in memory, with what must hold
// between them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "handoff/launch.h"
#include "stage/stage.h"

namespace torvane {

// What did not hold, with the doings that led there.
struct Broken : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class RandomOperator : private FieldWatcher, private ProgramProgress {
 public:
  // Samples, by file name and bytes, lie in the folder of designs beside damaged copies of them.
  struct Sample {
    std::string name, bytes;
  };

  RandomOperator(std::uint64_t seed, const std::vector<Sample>& samples);
  ~RandomOperator() override = default;

  // One doing; throws Broken where it does not come to rest.
  void Do();
  // Everything undone and done again is the same design; a saved design that is opened saves to the same
  // bytes as its next save. Throws Broken.
  void CheckDesign();

  // The last doing in words, for replays.
  const std::string& doing() const { return doing_; }
  // The most fields drawn anew in one doing.
  std::size_t mostRepaints() const { return mostRepaints_; }

 private:
  struct Doing {
    int weight;
    void (RandomOperator::*run)();
  };

  void Repaint(const Field&) override;
  // Loses patience with programs of more than a few ten thousand passes.
  bool GoOn(double share) override;

  std::uint64_t Below(std::uint64_t limit) { return random_() % limit; }
  bool OneIn(std::uint64_t n) { return Below(n) == 0; }
  template <class Choices>
  const auto& OneOf(const Choices& choices) {
    return choices[static_cast<std::size_t>(Below(std::size(choices)))];
  }

  std::string Number();
  std::string Odd();
  std::string Bytes(std::size_t most);
  std::string TextFor(const Field& field);
  std::string PathOf(bool open);
  Field& AnyField();
  Field& UsedField();
  int IndexFor(std::string_view control);
  void SetOff(const std::string& control, Event event, int index);

  void Start();
  void QueueAnswers();
  void TypeIntoField();
  void TypeIntoWindow();
  void SetField();
  void ChooseEntry();
  void Check();
  void RunOperation();
  void UseRowMenu();
  void SwitchFamily();
  void NewOpenSave();
  void ClickInWindow();
  void Preview();
  void UndoRedo();
  void Wait();
  void Restart();
  void OpenSample();

  std::string Saved(const std::string& path);

  std::mt19937_64 random_;
  Stage stage_;
  std::unique_ptr<Station> station_;
  std::vector<std::string> designs_;
  std::vector<const Operation*> operations_;
  std::vector<Field*> fields_;
  std::string doing_;
  std::size_t repaints_ = 0, mostRepaints_ = 0;
  int reports_ = 0;  // on programs, in this doing
};

}  // namespace torvane
