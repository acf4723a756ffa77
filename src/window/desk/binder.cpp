#include "window/desk/binder.h"

#include <QTimer>

#include "look/text.h"

namespace torvane {

Binder::Binder(Station& station) : station_(station) { station_.s.watcher = this; }

Binder::~Binder() { station_.s.watcher = nullptr; }

void Binder::Bind(const Field& field, QObject* owner, std::function<void()> show) {
  Remember(owner);
  show();
  bound_[&field].push_back({owner, std::move(show)});
}

void Binder::BindAll(QObject* owner, std::function<void()> show) {
  Remember(owner);
  show();
  all_.push_back({owner, std::move(show)});
}

void Binder::Remember(QObject* owner) {
  if (!owners_.insert(owner).second) return;
  connect(owner, &QObject::destroyed, this, [this, owner] { Forget(owner); });
}

void Binder::Forget(QObject* owner) {
  const auto isOwners = [owner](const Bound& bound) { return bound.owner == owner; };
  for (auto& [field, all] : bound_) std::erase_if(all, isOwners);
  std::erase_if(all_, isOwners);
  owners_.erase(owner);
}

bool Binder::Type(Field& field, const QString& text) {
  const auto taken = Taken(text);
  if (!taken) return false;
  Do([&] { station_.Type(field, *taken); });
  return true;
}

void Binder::Choose(Field& field, std::string_view text) {
  Do([&] { station_.Choose(field, text); });
}

void Binder::Check(Field& field, bool on) {
  Do([&] { station_.Check(field, on); });
}

bool Binder::Run(std::string_view control, Event event, int index) {
  bool answered = false;
  Do([&] { answered = station_.Run(control, event, index); });
  return answered;
}

bool Binder::RunIn(Window& window, std::string_view control, Event event, int index) {
  bool answered = false;
  Do([&] { answered = station_.RunIn(window, control, event, index); });
  return answered;
}

void Binder::ReleaseKey(const Field& field) {
  Do([&] { station_.ReleaseKey(field); });
}

void Binder::Do(const std::function<void()>& doing) {
  ++doings_;
  doing();
  --doings_;
  Flush();
  if (doings_ > 0) return;
  for (const auto& widget : std::exchange(discarded_, {}))
    if (widget != nullptr) widget->deleteLater();
}

void Binder::Discard(QObject* widget) {
  for (QObject* child : widget->findChildren<QObject*>()) Forget(child);
  Forget(widget);
  if (doings_ > 0)
    discarded_.emplace_back(widget);
  else
    widget->deleteLater();
}

void Binder::Repaint(const Field& field) {
  changed_.insert(&field);
  // A dialog within a doing shows what stands behind it.
  if (due_) return;
  due_ = true;
  QTimer::singleShot(0, this, [this] { Flush(); });
}

// What would show it finds nothing any more.
void Binder::Gone(const Field& field) {
  changed_.erase(&field);
  bound_.erase(&field);
}

void Binder::ShowEverything() {
  for (const auto& [field, all] : bound_) changed_.insert(field);
  Flush();
}

void Binder::Flush() {
  due_ = false;
  if (flushing_) return;
  flushing_ = true;
  while (!changed_.empty()) {
    const auto changed = std::exchange(changed_, {});
    for (const Field* field : changed) {
      const auto found = bound_.find(field);
      if (found == bound_.end()) continue;
      const auto shows = found->second;
      for (const Bound& bound : shows)
        if (owners_.contains(bound.owner)) bound.show();
    }
  }
  const auto shows = all_;
  for (const Bound& bound : shows)
    if (owners_.contains(bound.owner)) bound.show();
  flushing_ = false;
  if (!focusMoved) return;
  if (const Field* focus = std::exchange(station_.s.focus, nullptr); focus != nullptr) focusMoved(*focus);
}

}  // namespace torvane
