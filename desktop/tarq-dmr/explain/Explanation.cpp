#include "Explanation.h"

#include <cstring>

#include "ExplainWords.h"
#include "HostSession.h"

namespace {

UriFacts readUri(const char* uri) {
  UriFacts facts{uri, std::unique_ptr<VondURL>(VondURL::Parse(uri, nullptr))};
  facts.homeNetwork = facts.url != nullptr && isHomeNetwork(facts.url->GetHost());
  return facts;
}

QuickFacts askQuickTests(const UriFacts& uri, const char* metadata) {
  QuickFacts facts;
  facts.asked = uri.url != nullptr && metadata != nullptr;
  if (!facts.asked) return facts;
  facts.accepted = findQuickTest(uri.text, metadata, uri.homeNetwork);
  if (facts.accepted != nullptr) facts.mimeType = mimeTypeOf(*facts.accepted, metadata);
  for (const QuickTest& test : quickTests()) {
    if (test.appliesTo(uri.homeNetwork)) facts.tried.push_back(&test);
    if (&test == facts.accepted) break;
  }
  return facts;
}

ResFacts readRes(const TARQ_Object* object, unsigned int index, const char* uri,
                 const TarqDlnaResMetadata& record) {
  ResFacts facts;
  facts.protocolInfo = resAttribute(object, index, "protocolInfo");
  facts.url = resUrl(object, index);
  facts.requested = facts.url != nullptr && std::strcmp(facts.url, uri) == 0;
  if (record.skip == ResSkip::kNone && record.fourthField == nullptr) {
    facts.notes.emplace_back(
        "no fourth protocolInfo field: neither kind nor resolution is read, and it counts as converted");
  }
  const std::unique_ptr<TARQ_Resolution, void (*)(TARQ_Resolution*)> size(
      TARQ_Resolution_Parse(cdsText(record.resolution)), TARQ_Resolution_Destroy);
  if (record.resolution != nullptr && size == nullptr) {
    facts.notes.push_back("its resolution " + quoted(record.resolution) +
                          " does not parse and counts as the smallest picture");
  }
  return facts;
}

// Returns: the first object; null when it has no `res` or there is none, and the state then says why.
const TARQ_Object* readObject(const char* didl, MetadataFacts& facts) {
  if (didl == nullptr) return nullptr;
  facts.state = MetadataState::kNotParsed;
  facts.document.reset(TARQ_Result_ParseCds(cdsText(didl)));
  if (facts.document == nullptr) {
    facts.problem = diagnoseMetadata(didl);
    return nullptr;
  }
  facts.state = MetadataState::kNoObject;
  facts.objects = TARQ_Result_NumOfObjects(facts.document.get());
  if (facts.objects < 1) return nullptr;
  const TARQ_Object* object = TARQ_Result_GetObject(facts.document.get(), 0);
  facts.title = plainText(TARQ_Object_GetPropertyValue(object, cdsText("dc:title"), 0));
  const bool hasRes = TARQ_Object_NumOfProperties(object, cdsText("res")) > 0;
  facts.state = hasRes ? MetadataState::kRead : MetadataState::kNoRes;
  return hasRes ? object : nullptr;
}

void choose(const TARQ_Object* object, Explanation& explanation) {
  const int count = TARQ_Object_NumOfProperties(object, cdsText("res"));
  std::vector<TarqDlnaResMetadata>& records = explanation.records;
  records.resize(static_cast<size_t>(count));
  explanation.choice = TarqDlnaResSelection(explanation.region).choose(object, records.data(), count, 0);
  for (size_t i = 0; i < records.size(); ++i) {
    explanation.res.push_back(
        readRes(object, static_cast<unsigned int>(i), explanation.uri.text, records[i]));
  }
}

ProbeFacts planProbe(const Explanation& explanation) {
  const int winner = explanation.choice.winner;
  if (winner < 0) {
    return {explanation.uri.text, isHttpUri(explanation.uri.text), transferModeOf(kCategoryUnknown)};
  }
  const auto index = static_cast<size_t>(winner);
  const char* url = explanation.res[index].url;
  return {url, isHttpUri(url), transferModeOf(explanation.records[index].category)};
}

AnswerFacts askAgain(const ProbeFacts& probe) {
  VondHspDlnaRequest request;
  request.EnableGetContentFeatures(true);
  request.SetTransferMode(probe.transferMode);
  VondHspClient client(true);
  AnswerFacts answer;
  answer.clientError = client.Head(probe.url, request, &answer.response);
  return answer;
}

Verdict decide(TarqDmrParamsInterface& params, const Explanation& explanation, const char* metadata,
               Asking asking) {
  Verdict verdict;
  const bool needsServer = explanation.probe && explanation.probe->isHttp;
  if (needsServer && asking == Asking::kNever) return verdict;
  // Already set in a batch, where several threads may be here.
  if (params.GetCurrentRegion() != explanation.region) params.SetCurrentRegion(explanation.region);
  verdict.checker = newChecker(params);
  verdict.code = verdict.checker->CheckResource(explanation.uri.text, metadata);
  const bool unclear = verdict.code == kNothingPlayable || verdict.code == kServerError;
  if (needsServer && unclear && asking == Asking::kWhenUnclear) verdict.answer = askAgain(*explanation.probe);
  return verdict;
}

}  // namespace

Explanation explain(TarqDmrParamsInterface& params, const char* uri, const char* metadata, int32_t region,
                    Asking asking) {
  Explanation explanation;
  explanation.region = region;
  explanation.uri = readUri(uri);
  explanation.quick = askQuickTests(explanation.uri, metadata);
  if (explanation.quick.accepted == nullptr) {
    const TARQ_Object* object = readObject(metadata, explanation.metadata);
    if (object != nullptr) choose(object, explanation);
    if (isProbed(explanation.uri.homeNetwork, metadata)) explanation.probe = planProbe(explanation);
  }
  explanation.verdict = decide(params, explanation, metadata, asking);
  return explanation;
}
