#include "cli/command/proof_json.h"

#include "text/code_page.h"

namespace torvane {

namespace {

using Json = nlohmann::ordered_json;
using namespace executor;

Json Pair(const Range& range) { return Json::array({range.low, range.high}); }

void AddMass(Json& json, const TowMass& mass) {
  if (mass.known) json.update({{"grams", mass.fibre + mass.resin}, {"resinGrams", mass.resin}});
}

void AddAngle(Json& json, const LayerFigures& layer) {
  if (layer.hoop)
    json["asked"] = "hoop";
  else if (layer.askedAngle > 0)
    json["asked"] = layer.askedAngle;
  const LaidAngle& angle = layer.angle;
  if (angle.known)
    json.update({{"angle", angle.median},
                 {"angleOfTraverses", Pair(angle.traverses)},
                 {"angleAlongPart", Pair(angle.alongPart)}});
  if (layer.reversal.known)
    json["reversal"] = {{"length", layer.reversal.length}, {"angle", layer.reversal.angle}};
  if (layer.slowed) json["slowest"] = NameOf(layer.slowest);
}

Json LayerJson(const LayerFigures& layer) {
  Json json = {{"layer", layer.number},
               {"line", layer.line},
               {"stands", NameOf(layer.stands)},
               {"passes", layer.passesRun},
               {"passesAnnounced", layer.passesAnnounced},
               {"seconds", Pair(layer.time)},
               {"tow", Pair(layer.tow)}};
  AddMass(json, layer.mass);
  AddAngle(json, layer);
  if (layer.twofoldLine > 0)
    json["twofold"] = {
        {"dwells", layer.twofoldDwells}, {"swings", layer.twofoldSwings}, {"line", layer.twofoldLine}};
  if (!layer.judged) return json;
  json.update({{"windingAngle", layer.pattern.windingAngle},
               {"band", layer.band},
               {"zLow", layer.zLow},
               {"zHigh", layer.zHigh},
               {"covered", Pair(layer.covered)}});
  if (!layer.fits) return json;
  json.update({{"smallestGap", layer.pattern.smallestGap},
               {"largestGap", layer.pattern.largestGap},
               {"missDegrees", layer.pattern.miss}});
  return json;
}

Json SpoolsJson(const Proof& proof) {
  Json json = {{"length", proof.spoolLength}, {"count", proof.spools.Count()}, {"splices", Json::array()}};
  for (const Splice& splice : proof.spools.splices())
    json["splices"].push_back({{"layer", splice.layer},
                               {"pass", splice.pass},
                               {"z", splice.z},
                               {"at", splice.atEnd ? "end" : "traverse"}});
  return json;
}

Json AxesJson(const Proof& proof) {
  Json json = Json::array();
  for (const AxisUse& axis : proof.axes) {
    json.push_back({{"axis", axis.what}, {"most", axis.most}});
    if (axis.limit > 0)
      json.back().update({{"limit", axis.limit}, {"percent", 100 * axis.most / axis.limit}});
    else
      json.back()["limit"] = "not checked";
  }
  return json;
}

}  // namespace

Json JsonOf(const Proof& proof) {
  Json json = {{"unit", proof.millimetres ? "mm" : "in"},
               {"faults", proof.findings.Count(Level::Fault)},
               {"notes", proof.findings.Count(Level::Note)},
               {"statements", proof.statements},
               {"seconds", Pair(proof.run)},
               {"endless", proof.endless},
               {"windingSeconds", Pair(proof.winding)},
               {"announcedSeconds", proof.announcedSeconds},
               {"accelerations", proof.accelerates ? "known" : "not known"},
               {"waits", proof.waits},
               {"tow", Pair(proof.tow)}};
  if (proof.announcedTow > 0) json["announcedTow"] = proof.announcedTow;
  AddMass(json, proof.mass);
  json["spools"] = SpoolsJson(proof);
  if (proof.carriageMoved) json.update({{"lowestZ", proof.lowestZ}, {"highestZ", proof.highestZ}});
  json["axes"] = AxesJson(proof);
  json["layers"] = Json::array();
  for (const LayerFigures& layer : proof.layers) json["layers"].push_back(LayerJson(layer));
  json["findings"] = Json::array();
  for (const Finding& f : proof.findings.all())
    json["findings"].push_back({{"level", NameOf(LevelOf(f.kind))},
                                {"kind", NameOf(f.kind)},
                                {"line", f.line},
                                {"layer", f.layer},
                                {"alike", f.alike},
                                {"text", ToUtf8(f.text)}});
  return json;
}

}  // namespace torvane
