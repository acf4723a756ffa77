#include "live/live_proof.h"

#include <utility>

namespace torvane {

namespace {

// A program is formed under a name; a design that has none yet is proven under this one.
constexpr std::string_view kUnnamed = "New design.t2d";

class Stoppable : public ProgramProgress {
 public:
  explicit Stoppable(const std::stop_token& stop) : stop_(stop) {}
  bool GoOn(double) override { return !stop_.stop_requested(); }

 private:
  const std::stop_token& stop_;
};

// The tow that the station tells of the whole design, in inches or millimetres; 0 where it tells none.
double AnnouncedTow(const DesignState& s) {
  const FieldArray& lengths = s.gShow4Axis ? s.lblLength : s.lblLengthToCover;
  return number(lengths(IndexSet::kAllRows)).valueOr0() * (s.InInches() ? 12 : 1000);
}

std::string Joined(const std::vector<std::string_view>& blocks) {
  std::size_t size = 0;
  for (const std::string_view block : blocks) size += block.size();
  std::string text;
  text.reserve(size);
  for (const std::string_view block : blocks) text += block;
  return text;
}

}  // namespace

const executor::LayerFigures* LiveResult::LayerOf(int row) const {
  for (const executor::LayerFigures& layer : proof.layers)
    if (layer.number == row) return &layer;
  return nullptr;
}

LiveResult ProveDesign(DesignState& s, const ProgramPlace& place, const executor::Limits& limits,
                       const std::stop_token& stop, MapFor map) {
  LiveResult result;
  if (RowsOf(s.txtNumberOfLayers(s.Panel())) == 0) return result;
  if (s.gFileName.text().size() < kUnnamed.size() - kUnnamed.rfind('.')) s.gFilePath = kUnnamed;
  Stoppable progress(stop);
  Program program(s.signs, &progress);
  const Formed formed = FormProgram(s, place, program);
  result.angleUndefined = formed.angleUndefined;
  result.refusal = program.refusal();
  if (!formed || program.cancelled() || !result.refusal.empty()) return result;
  const std::string text = Joined(program.Text());
  result.proof = executor::Prove(text, limits, stop);
  executor::JudgeTow(result.proof, AnnouncedTow(s));
  for (executor::Remark& remark : executor::RemarksOf(result.proof))
    if (remark.level != executor::Level::Ok) result.remarks.push_back(std::move(remark));
  if (map != MapFor::Nobody) {
    const bool picture = map == MapFor::Picture;
    result.map = std::make_shared<executor::CoverMap>(
        executor::MapOf(text, limits, result.proof.millimetres, picture ? executor::kMapRows : 0,
                        picture ? executor::kMapPlaces : 0, stop));
  }
  result.formed = true;
  return result;
}

struct LiveProof::Job {
  explicit Job(NumberSigns signs) : s(signs) {}

  DesignState s;
  ProgramPlace place;
  executor::Limits limits;
  std::uint64_t asking = 0;
  MapFor map = MapFor::Nobody;
};

LiveProof::LiveProof(NumberSigns signs, std::function<void()> done)
    : done_(std::move(done)),
      next_(std::make_unique<Job>(signs)),
      spare_(std::make_unique<Job>(signs)),
      worker_([this](const std::stop_token& end) { Work(end); }) {}

LiveProof::~LiveProof() {
  worker_.request_stop();
  const std::lock_guard lock(guard_);
  under_.request_stop();
}

void LiveProof::Ask(const DesignState& s, const ProgramPlace& place, const executor::Limits& limits,
                    MapFor map) {
  const std::lock_guard lock(guard_);
  // The state itself stays in `next_` until the next asking; the thread works on what it was given.
  const bool changed = next_->s.TakeFrom(s);
  const bool mapped = map == MapFor::Nobody || map == next_->map;
  if (!changed && asked_ > 0 && limits == next_->limits && mapped) return;
  next_->place = place;
  next_->limits = limits;
  next_->map = map;
  next_->asking = ++asked_;
  waits_ = true;
  under_.request_stop();
  under_ = std::stop_source();
  wake_.notify_one();
}

bool LiveProof::Proving() const {
  const std::lock_guard lock(guard_);
  return answered_ < asked_;
}

std::shared_ptr<const LiveResult> LiveProof::Result() const {
  const std::lock_guard lock(guard_);
  return result_;
}

void LiveProof::Work(const std::stop_token& end) {
  while (true) {
    std::stop_token stop;
    {
      std::unique_lock lock(guard_);
      if (!wake_.wait(lock, end, [this] { return waits_; })) return;
      waits_ = false;
      spare_->s.TakeFrom(next_->s);
      spare_->place = next_->place;
      spare_->limits = next_->limits;
      spare_->map = next_->map;
      spare_->asking = next_->asking;
      stop = under_.get_token();
    }
    auto result = std::make_shared<LiveResult>(
        ProveDesign(spare_->s, spare_->place, spare_->limits, stop, spare_->map));
    result->asking = spare_->asking;
    {
      const std::lock_guard lock(guard_);
      if (stop.stop_requested() || end.stop_requested()) continue;
      answered_ = result->asking;
      result_ = std::move(result);
    }
    done_();
  }
}

}  // namespace torvane
