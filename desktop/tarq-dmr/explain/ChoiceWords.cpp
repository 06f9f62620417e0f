#include "ChoiceWords.h"

#include "CheckFacts.h"
#include "Explanation.h"
#include "JsonWriter.h"

ChoiceWords explainChoice(TarqDmrParamsInterface& params, const char* uri, const char* metadata,
                          int32_t region) {
  const CheckFacts facts = checkFacts(params, uri, metadata, region, false);
  const Explanation& explanation = *facts.explanation;
  const char* title = explanation.metadata.title;
  JsonWriter json;
  writeExplanation(json, explanation);
  return {facts.line, explanationText(explanation), json.take(),
          itemJson(facts, title == nullptr ? "" : title), explanation.probe.has_value()};
}
