#include "advice/advice.h"

#include <algorithm>

#include "workbench/build/build_outlook.h"
#include "workbench/build/marks.h"
#include "workbench/station/layer_count.h"

namespace torvane {

namespace {

using executor::Kind;
using executor::Level;
using executor::Remark;

void Replace(std::string& text, const std::string& what, std::string_view by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    if (const std::size_t behind = at + what.size();
        behind == text.size() || text[behind] < '0' || text[behind] > '9')
      text.replace(at, what.size(), by);
}

// What a finding says, without the number of its own layer: alike ones of several layers are told as one.
std::string SentenceOf(const Remark& remark) {
  std::string text = remark.text;
  Replace(text, "layer " + std::to_string(remark.layer), "the layer");
  Replace(text, "Layer " + std::to_string(remark.layer), "The layer");
  return text;
}

// "Layers 1, 2 and 6".
std::string LayersText(const std::vector<int>& layers) {
  std::string text = layers.size() == 1 ? "Layer " : "Layers ";
  for (std::size_t i = 0; i < layers.size(); ++i) {
    if (i > 0) text += i + 1 == layers.size() ? " and " : ", ";
    text += std::to_string(layers[i]);
  }
  return text;
}

// A warning tells of what a finding is about.
bool Tells(const BuildWarning& warning, const Remark& remark) {
  switch (warning.concern) {
    case Concern::NoEnds:
      return remark.kind == Kind::Passes && remark.layer == 0;
    case Concern::CarriageShift:
      return remark.kind == Kind::ShiftEnds && remark.layer == warning.layer;
    case Concern::TooFast:
      return remark.kind == Kind::MandrelSpeed && remark.layer == warning.layer;
    case Concern::Stands:
      return remark.kind == Kind::Standstill && remark.layer == warning.layer;
    default:
      return false;
  }
}

class Advisor {
 public:
  Advisor(const Station& station, const LiveResult* result, std::vector<BuildWarning> warnings)
      : station_(station), warnings_(std::move(warnings)) {
    if (result != nullptr)
      for (const Remark& remark : result->remarks) found_.push_back(&remark);
    for (const BuildWarning& warning : warnings_) levels_.push_back(TakeTold(warning));
  }

  std::vector<Advice> All(const std::vector<const Field*>& marked) {
    AddWarnings(Level::Fault);
    AddFindings(Level::Fault);
    for (const Field* field : marked)
      all_.push_back({.field = field,
                      .mark = ShownMark(*field),
                      .title = CalledName(*field) + " " + field->text(),
                      .text = WordsOf(ShownMark(*field)),
                      .repairs = RepairsOf(station_, *field)});
    AddWarnings(std::nullopt);
    AddWarnings(Level::Note);
    AddFindings(Level::Note);
    return std::move(all_);
  }

 private:
  // Drops the findings that a warning tells of; their worst level.
  std::optional<Level> TakeTold(const BuildWarning& warning) {
    std::optional<Level> level;
    std::erase_if(found_, [&](const Remark* remark) {
      const bool told = Tells(warning, *remark);
      if (told) level = level ? std::max(*level, remark->level) : remark->level;
      return told;
    });
    return level;
  }

  void AddWarnings(std::optional<Level> level) {
    for (std::size_t i = 0; i < warnings_.size(); ++i) {
      const BuildWarning& warning = warnings_[i];
      if (levels_[i] != level) continue;
      all_.push_back({.field = warning.field,
                      .level = level,
                      .title = warning.what,
                      .text = warning.why,
                      .concern = warning.concern,
                      .layers = LayerBit(warning.layer),
                      .repairs = RepairsOf(station_, warning)});
    }
  }

  void AddFindings(Level level) {
    std::vector<std::pair<const Remark*, std::vector<int>>> groups;
    for (const Remark* remark : found_) {
      if (remark->level != level) continue;
      const auto alike = std::find_if(groups.begin(), groups.end(), [remark](const auto& group) {
        return remark->layer > 0 && group.first->layer > 0 && SentenceOf(*group.first) == SentenceOf(*remark);
      });
      if (alike == groups.end())
        groups.push_back({remark, {remark->layer}});
      else
        alike->second.push_back(remark->layer);
    }
    const DesignState& s = station_.s;
    for (const auto& [remark, layers] : groups) {
      Advice advice{.level = level,
                    .title = remark->layer > 0 ? LayersText(layers) : remark->subject,
                    .text = SentenceOf(*remark),
                    .kind = remark->kind};
      if (remark->layer > 0 && remark->layer <= kMostLayers)
        advice.field = &(s.gShow4Axis ? s.cmbPattern(remark->layer) : s.txtWA(remark->layer));
      for (const int layer : layers) advice.layers |= LayerBit(layer);
      if (remark->kind) advice.repairs = RepairsOf(station_, *remark->kind, advice.layers);
      all_.push_back(std::move(advice));
    }
  }

  const Station& station_;
  const std::vector<BuildWarning> warnings_;
  std::vector<std::optional<Level>> levels_;  // of each warning, where the proof has found the same
  std::vector<const Remark*> found_;
  std::vector<Advice> all_;
};

std::string Counted(int count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

std::vector<Advice> AdviceOf(const Station& station, const LiveResult* result) {
  return Advisor(station, result, WarningsBesideMarks(station)).All(MarkedFields(station.s));
}

std::vector<Advice> AdviceInWords(const Station& station, const LiveResult* result) {
  return Advisor(station, result, BuildWarnings(station)).All({});
}

BuildAdvice BuildAdviceOf(const Station& station, const LiveResult* result) {
  const BuildOutlook outlook = OutlookOf(station);
  BuildAdvice advice{outlook.ready, outlook.clear, outlook.sentence};
  const int faults = result == nullptr ? 0 : result->proof.findings.Count(Level::Fault);
  if (!outlook.ready || faults == 0) return advice;
  const int marks = static_cast<int>(MarkedFields(station.s).size());
  const int warnings = static_cast<int>(WarningsBesideMarks(station).size());
  advice.clear = false;
  advice.sentence = Counted(faults, "fault");
  if (marks > 0)
    advice.sentence += " and " + Counted(marks, "marked value");
  else if (warnings > 0)
    advice.sentence += " and " + Counted(warnings, "warning");
  advice.sentence += ", look first";
  return advice;
}

}  // namespace torvane
