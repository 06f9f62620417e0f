#include "ChoiceWords.h"

#include "Explanation.h"
#include "JsonWriter.h"

ChoiceWords explainChoice(TarqDmrParamsInterface& params, const char* uri, const char* metadata,
                          int32_t region) {
  const Explanation explanation = explain(params, uri, metadata, region, Asking::kNever);
  JsonWriter json;
  writeExplanation(json, explanation);
  return {choiceLine(explanation), explanationText(explanation), json.str(), explanation.probe.has_value()};
}
