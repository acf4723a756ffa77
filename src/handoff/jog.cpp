#include "handoff/jog.h"

#include "design/masks.h"

namespace torvane {

namespace {

constexpr JogPair kParts[] = {{"btn2AxLeftRight", Event::Click, true, false},
                              {"btnLR", Event::Click, true, true}};
constexpr JogPair kOffsets[] = {
    {"btnLeftCloser", Event::Release, false, false}, {"btnLDHZ", Event::Click, true, true},
    {"btnLeft", Event::Release, true, false},        {"btnCloser", Event::Release, false, false},
    {"btnRight", Event::Release, true, false},       {"btnRDHZ", Event::Click, true, true},
    {"btnRightCloser", Event::Release, false, false}};

// Each field by a step of its own, through its mask.
void Jog(Station& station, const JogPair& pair, int member, const Field& stepField,
         std::initializer_list<Field*> fields, Mask mask) {
  station.s.gDirty = true;
  const Number step = number(stepField);
  const bool plus = (member == 0) == pair.plusAtZero;
  for (Field* field : fields) *field = (number(*field) + (plus ? step : -step)).as(mask);
}

void JogTwoAxisPart(Station& station, int member) {
  DesignState& s = station.s;
  Jog(station, kParts[0], member, s.txtStepSize2Ax, {&s.txtZ2(0), &s.txtZ2(1)}, mask::kJogged);
}

// The gap between head and mandrel stays.
void JogFourAxisPart(Station& station, int member) {
  DesignState& s = station.s;
  Jog(station, kParts[1], member, s.txtStepSize4Ax,
      {&s.txtZ4(0), &s.txtZ4(1), &s.txtZ4(2), &s.txtZ4(3), &s.txtAdjust(1), &s.txtAdjust(2), &s.txtAdjust(4),
       &s.txtAdjust(5)},
      mask::kJogged);
}

template <int offset>
void JogOffset(Station& station, int member) {
  DesignState& s = station.s;
  constexpr Mask kInches = offset == 1 || offset == 5 ? mask::kJoggedFine : mask::kJogged;
  Jog(station, kOffsets[offset], member, s.txtStepSize4Ax, {&s.txtAdjust(offset)},
      s.InInches() ? kInches : mask::kJoggedMM);
}

constexpr Operation Of(const JogPair& pair, void (*run)(Station&, int)) {
  return {pair.control, pair.event, run};
}

constexpr Operation kOperations[] = {
    Of(kParts[0], JogTwoAxisPart), Of(kParts[1], JogFourAxisPart), Of(kOffsets[0], JogOffset<0>),
    Of(kOffsets[1], JogOffset<1>), Of(kOffsets[2], JogOffset<2>),  Of(kOffsets[3], JogOffset<3>),
    Of(kOffsets[4], JogOffset<4>), Of(kOffsets[5], JogOffset<5>),  Of(kOffsets[6], JogOffset<6>),
};

}  // namespace

const JogPair& PartJog(int panel) { return kParts[panel]; }

const JogPair& OffsetJog(int offset) { return kOffsets[offset]; }

int MemberForward(const JogPair& pair, const DesignState& s) {
  const bool plus = !pair.alongPart || s.gIsLHDrive;
  return plus == pair.plusAtZero ? 0 : 1;
}

std::span<const Operation> JogOperations() { return kOperations; }

}  // namespace torvane
