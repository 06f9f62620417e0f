#include "ChoiceWords.h"

#include "CheckFacts.h"
#include "Explanation.h"
#include "JsonWriter.h"

namespace {

std::string wholeWords(const Explanation& explanation, ChoiceDetail detail) {
  if (detail == ChoiceDetail::kLine) return {};
  if (detail == ChoiceDetail::kText) return explanationText(explanation);
  JsonWriter json;
  writeExplanation(json, explanation);
  return json.take();
}

}  // namespace

ChoiceWords explainChoice(TarqDmrParamsInterface& params, const char* uri, const char* metadata,
                          int32_t region, ChoiceDetail detail) {
  const CheckFacts facts = checkFacts(params, uri, metadata, region, false);
  const Explanation& explanation = *facts.explanation;
  return {facts.line, wholeWords(explanation, detail), itemJson(facts), explanation.probe.has_value()};
}
