#include "Explanation.h"

#include <cstring>

#include "ContestFacts.h"
#include "ExplainWords.h"
#include "HostSession.h"
#include "VideoProfileTables.h"
#include "VondProtocolInfo.h"

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

// Asks the host's parsers in the order of the selection.
const char* whySkipped(const char* protocolInfo, const char* url) {
  if (protocolInfo == nullptr) return "it has no protocolInfo";
  if (std::strchr(protocolInfo, ':') == nullptr) return "its protocolInfo has no \":\"";
  if (url == nullptr) return "it has no URL";
  const VondProtocolInfo fields(protocolInfo);
  if (!fields.IsValid()) return "its protocolInfo does not parse";
  const char* contentFormat = fields.GetField(3);
  if (TarqDlnaResSelection::wrapsMimeType(contentFormat) && !VondPI4thField(contentFormat).IsValid())
    return "its third protocolInfo field, with a CONTENTFORMAT, does not parse";
  const char* fourthField = fields.GetField(4);
  if (fourthField != nullptr && !VondPI4thField(fourthField).IsValid())
    return "its fourth protocolInfo field does not parse (a \"=\" without a name before it)";
  return nullptr;
}

ResFacts readRes(const TARQ_Object* object, unsigned int index, const TarqDlnaResSelection& selection,
                 const TarqDlnaResMetadata& record) {
  ResFacts facts;
  facts.protocolInfo = resAttribute(object, index, "protocolInfo");
  facts.url = resUrl(object, index);
  facts.skipped = whySkipped(facts.protocolInfo, facts.url);
  if (facts.skipped != nullptr) return facts;
  const VondProtocolInfo fields(facts.protocolInfo);
  if (TarqDlnaResSelection::wrapsMimeType(fields.GetField(3))) facts.wrapped = fields.GetField(3);
  if (record.fourthField.c_str() == nullptr) {
    facts.notes.emplace_back(
        "no fourth protocolInfo field: neither its kind nor its resolution is read, and it counts as "
        "converted");
  } else {
    selection.selectMediaCategory(record.mimeType.c_str(), record.extension.c_str(), record.dlnaPn.c_str(),
                                  &facts.stage);
  }
  const std::unique_ptr<TARQ_Resolution, void (*)(TARQ_Resolution*)> size(
      TARQ_Resolution_Parse(cdsText(record.resolution.c_str())), TARQ_Resolution_Destroy);
  if (record.resolution.c_str() != nullptr && size == nullptr)
    facts.notes.push_back("its resolution " + quoted(record.resolution.c_str()) +
                          " does not parse and counts as the smallest picture");
  return facts;
}

// The first object; null when there is none with a `res`, and the state then says why.
const TARQ_Object* readObject(const char* text, MetadataFacts& facts) {
  if (text == nullptr) return nullptr;
  facts.state = MetadataState::kNotParsed;
  facts.document.reset(TARQ_Result_ParseCds(cdsText(text)));
  if (facts.document == nullptr) return nullptr;
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
  TarqDlnaResSelection selection(explanation.region);
  const int last = selection.readRecords(object, records.data(), count);
  for (size_t i = 0; i < records.size(); ++i)
    explanation.res.push_back(readRes(object, static_cast<unsigned int>(i), selection, records[i]));

  const ResContestKind kind = selection.contestFor(records.data(), count, last, 0);
  if (kind == ResContestKind::kNone) return;
  explanation.deciding = TarqDlnaResSelection::decidingRecord(records.data(), last);
  explanation.contest =
      holdContest(selection, kind, explanation.region, explanation.deciding, explanation.res, records);
}

ProbeFacts planProbe(const Explanation& explanation) {
  const int winner = explanation.winner();
  if (winner < 0)
    return {explanation.uri.text, isHttpUri(explanation.uri.text), transferModeOf(kCategoryUnknown)};
  const char* url = explanation.res[static_cast<size_t>(winner)].url;
  const int category = explanation.records[static_cast<size_t>(winner)].category;
  return {url, isHttpUri(url), transferModeOf(category)};
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
               bool mayProbe) {
  Verdict verdict;
  const bool needsServer = explanation.probe && explanation.probe->isHttp;
  if (needsServer && !mayProbe) return verdict;
  params.SetCurrentRegion(explanation.region);
  verdict.checker = newChecker(params);
  verdict.code = verdict.checker->CheckResource(explanation.uri.text, metadata);
  const bool unclear = verdict.code == kNothingPlayable || verdict.code == kServerError;
  if (needsServer && unclear) verdict.answer = askAgain(*explanation.probe);
  return verdict;
}

}  // namespace

Explanation explain(TarqDmrParamsInterface& params, const char* uri, const char* metadata, int32_t region,
                    bool probe) {
  if (!profilesMapped) TarqDlnaResSelection::maptheProfiles();
  Explanation explanation;
  explanation.region = region;
  explanation.uri = readUri(uri);
  explanation.rvu = isRvuContent(metadata);
  explanation.quick = askQuickTests(explanation.uri, metadata);
  if (explanation.quick.accepted == nullptr) {
    const TARQ_Object* object = readObject(metadata, explanation.metadata);
    if (object != nullptr) choose(object, explanation);
    if (isProbed(explanation.uri.homeNetwork, metadata)) explanation.probe = planProbe(explanation);
  }
  explanation.verdict = decide(params, explanation, metadata, probe);
  return explanation;
}
