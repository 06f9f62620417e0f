#include "ContestWords.h"
#include "ExplainWords.h"
#include "JsonObject.h"
#include "ResultJson.h"
#include "ResultText.h"
#include "VondProtocolInfo.h"

namespace {

void writeUri(JsonObject& object, const UriFacts& uri) {
  object.add("text", uri.text);
  object.add("scheme", uri.url == nullptr ? nullptr : uri.url->GetScheme());
  object.add("host", uri.url == nullptr ? nullptr : uri.url->GetHost());
  object.add("network", uri.url == nullptr ? nullptr : uri.homeNetwork ? "home" : "Internet");
}

void writeQuick(JsonObject& object, const QuickFacts& quick) {
  const QuickTest* accepted = quick.accepted;
  object.add("asked", quick.asked);
  object.add("found", accepted == nullptr ? nullptr : accepted->contains);
  object.add("foundIn", accepted == nullptr ? nullptr : accepted->ofUri ? "uri" : "metadata");
  object.add("mimeType", quick.mimeType);
}

void writeMetadata(JsonObject& object, const Explanation& explanation) {
  const MetadataFacts& metadata = explanation.metadata;
  const bool opened = explanation.quick.accepted == nullptr;
  object.add("state", opened ? metadataKey(metadata) : "notOpened");
  object.add("message", opened ? metadataWords(metadata) : "a quick test accepted the resource");
  object.add("objects", metadata.objects);
  object.add("title", metadata.title);
  object.add("resCount", static_cast<int>(explanation.res.size()));
}

// Of link-protected content the third protocolInfo field, which wraps the MIME type. It may be long, so it is
// copied only here.
void writeWrapped(JsonObject& object, const char* protocolInfo, const TarqDlnaResMetadata& record) {
  constexpr std::string_view kKey = "wrappedContentFormat";
  if (!record.mimeTypeWrapped) return object.addNull(kKey);
  object.add(kKey, VondProtocolInfo(protocolInfo).GetField(3));
}

void writeRes(JsonObject& object, const ResFacts& res, const TarqDlnaResMetadata& record) {
  object.add("protocolInfo", res.protocolInfo);
  object.add("url", res.url);
  object.add("requested", res.requested);
  object.add("skip", skipKey(record.skip));
  object.add("skipped", skipWords(record.skip));
  writeWrapped(object, res.protocolInfo, record);
  object.add("mimeType", record.mimeType);
  object.add("extension", record.extension);
  object.add("dlnaPn", record.dlnaPn);
  object.add("orsaPn", record.orsaPn);
  object.add("aribPn", record.aribPn);
  object.add("notConverted", record.notConverted);
  object.add("resolution", record.resolution);
  object.add("mpfEntries", record.mpfEntries);
  object.add("category", categoryWord(record.category));
  object.add("categoryBy", stageWord(record.categoryBy));
  object.addStrings("notes", res.notes);
}

void writePoints(JsonObject& object, const ResPoints& points) {
  for (const PointCause& cause : pointCauses()) object.add(cause.key, points.*cause.points);
  object.add("total", points.total());
}

void writeChange(JsonObject& object, const WhatIf& change) {
  object.add("key", change.key);
  object.add("region", change.region);
  object.add("format", change.format);
  object.add("message", wouldBe(change));
}

// Why a candidate is out, and what would let it in; both null when it is in.
void writeExclusion(JsonObject& object, const Explanation& explanation, size_t i) {
  const bool out = isOut(explanation.records[i].score.rule);
  object.add("excludedBecause", out ? exclusionReason(explanation, i).c_str() : nullptr);
  const std::optional<WhatIf> change = out ? changeToEnter(explanation, i) : std::nullopt;
  if (!change) return object.addNull("change");
  object.addObject("change", [&](JsonObject& json) { writeChange(json, *change); });
}

void writeScore(JsonObject& object, const ResScore& score, ResContestKind contest) {
  if (contest == ResContestKind::kMpo) {
    object.add("rank", score.mpo.rank);
    object.add("pixelsFromFullHd", score.mpo.overArea);
    return object.add("fullHd", score.mpo.fullHd);
  }
  object.addObject("primary", [&](JsonObject& points) { writePoints(points, score.primary); });
  if (!wordsOf(contest).twoScores) return;
  object.addObject("secondary", [&](JsonObject& points) { writePoints(points, score.secondary); });
}

void writeCandidate(JsonObject& object, const Explanation& explanation, size_t i) {
  const TarqDlnaResMetadata& record = explanation.records[i];
  object.add("index", static_cast<int>(i));
  object.add("eligible", !isOut(record.score.rule));
  object.add("rule", ruleKey(record.score.rule));
  writeExclusion(object, explanation, i);
  object.add("format", record.format);
  writeScore(object, record.score, explanation.choice.contest);
}

// How far the winner is ahead of the second; of the multi-picture contest there is no second.
void writeLead(JsonObject& object, const Explanation& explanation) {
  const bool points = explanation.choice.winner >= 0 && explanation.choice.contest != ResContestKind::kMpo;
  const int second = points ? secondOf(explanation) : -1;
  object.addIndex("second", second);
  if (second < 0) {
    object.addNull("ahead");
  } else {
    object.add("ahead", explanation.scoreOf(explanation.choice.winner).counted().total() -
                            explanation.scoreOf(second).counted().total());
  }
  object.add("lead", leadWords(explanation));
}

void writeContest(JsonObject& object, const Explanation& explanation) {
  object.add("name", wordsOf(explanation.choice.contest).key);
  object.addIndex("from", explanation.choice.contestFrom);
  object.add("reason", contestReason(explanation));
  object.addObjects("candidates", explanation.records.size(),
                    [&](JsonObject& candidate, size_t i) { writeCandidate(candidate, explanation, i); });
  object.addIndex("winner", explanation.choice.winner);
  writeLead(object, explanation);
}

void writeAnswer(JsonObject& object, const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  const bool byTable = explanation.choice.winner < 0;
  const auto write = [&](const char* type, const char* features) {
    object.add("contentType", type);
    object.add("contentFeatures", features);
    object.add("lookedUp", byTable ? formatKeyWords(type, features).c_str() : nullptr);
  };
  if (const TarqResourceInfo* resource = verdict.resource()) {
    object.addNull("clientError");
    object.addNull("status");
    write(resource->mimeType, resource->additionalInfo);
  } else if (verdict.answer) {
    const VondHspDlnaResponse& response = verdict.answer->response;
    object.add("clientError", verdict.answer->clientError);
    object.add("status", response.GetStatusCode());
    write(response.GetContentType(), response.GetContentFeatures());
  }
}

void writeProbe(JsonObject& object, const Explanation& explanation) {
  object.add("notProbed", explanation.probe ? nullptr : whyNotProbed(explanation).key);
  object.add("notProbedBecause", explanation.probe ? nullptr : whyNotProbed(explanation).words);
  if (!explanation.probe) return;
  const ProbeFacts& probe = *explanation.probe;
  object.add("url", probe.url);
  object.add("isHttp", probe.isHttp);
  object.add("transferMode", transferModeWord(probe.transferMode));
  object.add("decidesAlone", explanation.choice.winner < 0);
  object.add("sent", probe.isHttp && explanation.verdict.code.has_value());
  if (!probe.isHttp || !explanation.verdict.code) return object.addNull("answer");
  object.addObject("answer", [&](JsonObject& answer) { writeAnswer(answer, explanation); });
}

void writeVerdict(JsonObject& object, const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  if (!verdict.code) {
    object.addNull("code");
    object.add("state", "undecided");
    object.add("message", "depends on the server's answer");
    object.add("resIndex", explanation.choice.winner);
    return object.add("format", explanation.format());
  }
  object.add("code", *verdict.code);
  object.add("state", *verdict.code == kAccepted ? "accepted" : "refused");
  object.add("message", refusalWords(verdict));
  const TarqResourceInfo* resource = verdict.resource();
  if (resource == nullptr) return;
  object.add("resIndex", resource->resIndex);
  object.add("format", formatOf(*resource));
  object.add("uri", resource->uri);
  object.add("mimeType", resource->mimeType);
  object.add("additionalInfo", resource->additionalInfo);
  object.add("size", resource->size);
  object.add("duration", resource->duration);
  object.add("operation", resource->operation);
}

}  // namespace

void writeExplanation(JsonWriter& json, const Explanation& explanation) {
  const ResChoice& choice = explanation.choice;
  JsonObject object(json);
  object.add("region", explanation.region);
  object.addObject("uri", [&](JsonObject& uri) { writeUri(uri, explanation.uri); });
  object.addObject("quick", [&](JsonObject& quick) { writeQuick(quick, explanation.quick); });
  object.addObject("metadata", [&](JsonObject& metadata) { writeMetadata(metadata, explanation); });
  object.addObjects("res", explanation.res.size(), [&](JsonObject& res, size_t i) {
    writeRes(res, explanation.res[i], explanation.records[i]);
  });
  object.add("kind", choice.kindFrom < 0 ? nullptr : categoryWord(choice.kind));
  object.addIndex("decidedBy", choice.kindFrom);
  if (choice.contestHeld()) {
    object.addObject("contest", [&](JsonObject& contest) { writeContest(contest, explanation); });
  } else {
    object.addNull("contest");
  }
  object.addObject("probe", [&](JsonObject& probe) { writeProbe(probe, explanation); });
  object.addObject("verdict", [&](JsonObject& verdict) { writeVerdict(verdict, explanation); });
}
