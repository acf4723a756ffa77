// Ties widgets to fields, and what the operator does to the station. Changed fields are collected, and each
// is shown once, when the doing has run to its end.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "look/theme.h"
#include "workbench/station/station.h"

namespace torvane {

class Binder : public QObject, private FieldWatcher {
 public:
  explicit Binder(Station& station);
  ~Binder() override;

  // `show` runs whenever the field has changed, as long as its owner lives, and once at once.
  void Bind(const Field& field, QObject* owner, std::function<void()> show);
  // `show` runs after every doing, for what hangs on more than one field or on no field at all.
  void BindAll(QObject* owner, std::function<void()> show);

  // The text typed into a field, in the toolkit's characters; false, with nothing changed, if one of them is
  // outside the station's code page.
  bool Type(Field& field, const QString& text);
  void Choose(Field& field, std::string_view text);
  void Check(Field& field, bool on);
  // False if the station has no operation of that control and event.
  bool Run(std::string_view control, Event event = Event::Click, int index = 0);
  // The same from within a window of the station, which takes it first.
  bool RunIn(Window& window, std::string_view control, Event event = Event::Click, int index = 0);
  // A key was released in a field and left its text as it was.
  void ReleaseKey(const Field& field);
  // Any other doing.
  void Do(const std::function<void()>& doing);
  // A doing is on its way, perhaps in a question to the operator.
  bool busy() const { return doings_ > 0; }
  // Unties a widget with all in it, and deletes it once no doing is on its way: a message waits for its
  // answer in the middle of the key that brought it up, and what the key was pressed in is still needed
  // afterwards.
  void Discard(QObject* widget);
  // Shows what has changed so far.
  void Flush();
  // Shows a field again though it has not changed, or everything.
  void Again(const Field& field) { changed_.insert(&field); }
  void ShowEverything();

  // Told when a rule has sent the operator's next key to a field.
  std::function<void(const Field&)> focusMoved;

 private:
  struct Bound {
    QObject* owner;
    std::function<void()> show;
  };

  void Repaint(const Field& field) override;
  void Gone(const Field& field) override;
  void Forget(QObject* owner);
  void Remember(QObject* owner);

  Station& station_;
  std::unordered_map<const Field*, std::vector<Bound>> bound_;
  std::vector<Bound> all_;
  std::unordered_set<const Field*> changed_;
  std::unordered_set<QObject*> owners_;
  std::vector<QPointer<QObject>> discarded_;
  int doings_ = 0;  // one within another
  bool flushing_ = false;
  bool due_ = false;
};

class LiveWatch;

// What every part of the window is given.
struct Desk {
  Station& station;
  Binder& binder;
  Theme& theme;
  Window* window = nullptr;         // of a dialog: what it shows
  const LiveWatch* live = nullptr;  // null where nothing is proven

  // A control where this desk stands: with two dialogs open each runs its own.
  bool Run(std::string_view control, Event event = Event::Click, int index = 0) const {
    return window != nullptr ? binder.RunIn(*window, control, event, index)
                             : binder.Run(control, event, index);
  }
};

}  // namespace torvane
