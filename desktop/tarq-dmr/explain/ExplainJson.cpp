#include "ExplainWords.h"
#include "JsonObject.h"
#include "ResultText.h"

namespace {

void writeUri(JsonObject& object, const UriFacts& uri) {
  object.add("text", uri.text);
  object.add("scheme", uri.url == nullptr ? nullptr : uri.url->GetScheme());
  object.add("host", uri.url == nullptr ? nullptr : uri.url->GetHost());
  object.add("network", uri.url == nullptr ? nullptr : uri.homeNetwork ? "home" : "Internet");
}

void writeQuick(JsonObject& object, const QuickFacts& quick) {
  object.add("asked", quick.asked);
  object.addObjects("tried", quick.tried.size(), [&](JsonObject& test, size_t i) {
    test.add("in", quick.tried[i]->ofUri ? "uri" : "metadata");
    test.add("contains", quick.tried[i]->contains);
    test.add("accepts", quick.tried[i] == quick.accepted);
  });
  object.add("mimeType", quick.mimeType);
}

void writeMetadata(JsonObject& object, const Explanation& explanation) {
  const MetadataFacts& metadata = explanation.metadata;
  const bool lookedAt = explanation.quick.accepted == nullptr;
  object.add("state", lookedAt ? metadataWords(metadata.state) : "not looked at");
  object.add("objects", metadata.objects);
  object.add("title", metadata.title);
  object.add("resCount", static_cast<int>(explanation.res.size()));
}

void writeRes(JsonObject& object, const ResFacts& res, const TarqDlnaResMetadata& record) {
  object.add("protocolInfo", res.protocolInfo);
  object.add("url", res.url);
  object.add("skipped", res.skipped);
  object.add("wrappedIn", res.wrapped ? res.wrapped->c_str() : nullptr);
  object.add("mimeType", record.mimeType);
  object.add("extension", record.extension);
  object.add("dlnaPn", record.dlnaPn);
  object.add("orsaPn", record.orsaPn);
  object.add("aribPn", record.aribPn);
  object.add("notConverted", record.notConverted);
  object.add("resolution", record.resolution);
  object.add("mpfEntries", record.mpfEntries);
  object.add("category", categoryWord(record.category));
  object.add("categoryBy", stageWord(res.stage));
  object.addStrings("notes", res.notes);
}

void writePoints(JsonObject& object, const ResPoints& points) {
  object.add("format", points.format);
  object.add("position", points.position);
  object.add("notConverted", points.notConverted);
  object.add("resolution", points.resolution);
  object.add("nearest", points.nearest);
  object.add("total", points.total());
}

void writeCandidate(JsonObject& object, const ContestFacts& contest, size_t i, const VondString& format) {
  const bool mpo = !contest.photos.empty();
  const bool in = contest.outFor[i].empty();
  object.add("index", static_cast<int>(i));
  object.add("in", in);
  object.add("rule", mpo ? nullptr : ruleKey(contest.scores[i].rule));
  object.add("outFor", in ? nullptr : contest.outFor[i].c_str());
  object.add("format", in ? format.c_str() : nullptr);
  if (mpo) {
    object.add("rank", contest.photos[i].rank);
    object.add("pixelsFromFullHd", contest.photos[i].overArea);
    object.add("fullHd", contest.photos[i].fullHd);
    return;
  }
  const bool twoScores = wordsOf(contest.kind).twoScores;
  object.addObject("primary", [&](JsonObject& points) { writePoints(points, contest.scores[i].primary); });
  if (twoScores)
    object.addObject("secondary",
                     [&](JsonObject& points) { writePoints(points, contest.scores[i].secondary); });
}

void writeContest(JsonObject& object, const Explanation& explanation) {
  const ContestFacts& contest = *explanation.contest;
  object.add("name", wordsOf(contest.kind).key);
  object.add("reason", contest.reason);
  object.addObjects("candidates", contest.outFor.size(), [&](JsonObject& candidate, size_t i) {
    writeCandidate(candidate, contest, i, explanation.records[i].format);
  });
  object.addIndex("winner", contest.winner);
  object.add("lead", contest.lead);
}

void writeAnswer(JsonObject& object, const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  const bool byTable = explanation.winner() < 0;
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
  object.add("notAskedFor", explanation.probe ? nullptr : whyNotProbed(explanation));
  if (!explanation.probe) return;
  const ProbeFacts& probe = *explanation.probe;
  object.add("url", probe.url);
  object.add("isHttp", probe.isHttp);
  object.add("transferMode", transferModeWord(probe.transferMode));
  object.add("contentFeatures", true);
  object.add("decidesAlone", explanation.winner() < 0);
  const auto outcomes = probeOutcomes();
  object.addObjects("outcomes", outcomes.size(), [&](JsonObject& outcome, size_t i) {
    outcome.add("answer", outcomes[i].answer);
    outcome.add("code", outcomes[i].code);
  });
  object.add("sent", probe.isHttp && explanation.verdict.code.has_value());
  if (!probe.isHttp || !explanation.verdict.code) return object.addNull("answer");
  object.addObject("answer", [&](JsonObject& answer) { writeAnswer(answer, explanation); });
}

void writeVerdict(JsonObject& object, const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  if (!verdict.code) {
    object.addNull("code");
    object.add("message", "it hangs on the server's answer");
    object.add("resIndex", explanation.winner());
    return object.add("format", explanation.format());
  }
  object.add("code", *verdict.code);
  object.add("message", describe(*verdict.code));
  const TarqResourceInfo* resource = verdict.resource();
  if (resource == nullptr) return;
  object.add("resIndex", resource->resIndex);
  object.add("format", resource->contentFormat == nullptr ? nullptr : resource->contentFormat->c_str());
  object.add("uri", resource->uri);
  object.add("mimeType", resource->mimeType);
  object.add("additionalInfo", resource->additionalInfo);
  object.add("size", resource->size);
  object.add("duration", resource->duration);
  object.add("operation", resource->operation);
}

}  // namespace

void writeExplanation(JsonWriter& json, const Explanation& explanation) {
  const int deciding = explanation.deciding;
  JsonObject object(json);
  object.add("region", explanation.region);
  object.addObject("uri", [&](JsonObject& uri) { writeUri(uri, explanation.uri); });
  object.addObject("quick", [&](JsonObject& quick) { writeQuick(quick, explanation.quick); });
  object.addObject("metadata", [&](JsonObject& metadata) { writeMetadata(metadata, explanation); });
  object.addObjects("res", explanation.res.size(), [&](JsonObject& res, size_t i) {
    writeRes(res, explanation.res[i], explanation.records[i]);
  });
  object.add("kind", deciding < 0
                         ? nullptr
                         : categoryWord(explanation.records[static_cast<size_t>(deciding)].category));
  object.addIndex("decidedBy", deciding);
  if (explanation.contest) {
    object.addObject("contest", [&](JsonObject& contest) { writeContest(contest, explanation); });
  } else {
    object.addNull("contest");
  }
  object.addObject("probe", [&](JsonObject& probe) { writeProbe(probe, explanation); });
  object.addObject("verdict", [&](JsonObject& verdict) { writeVerdict(verdict, explanation); });
}
