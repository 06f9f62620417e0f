#include "ContestWords.h"
#include "ExplainWords.h"
#include "JsonText.h"
#include "ResultText.h"

namespace {

// One object, written key by key.
class Object {
 public:
  explicit Object(JsonText& json) : json_(json) { json_.openObject(); }
  ~Object() { json_.closeObject(); }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  void add(std::string_view key, const char* text) { addValue(key, text); }  // null: null
  void add(std::string_view key, const std::string& text) { addValue(key, text.c_str()); }
  void add(std::string_view key, const VondString& text) { addValue(key, text.c_str()); }
  void add(std::string_view key, int number) { addValue(key, number); }
  void add(std::string_view key, bool flag) { addValue(key, flag); }
  void addNull(std::string_view key) { add(key, static_cast<const char*>(nullptr)); }
  void addIndex(std::string_view key, int index) { index < 0 ? addNull(key) : add(key, index); }

  // `write` takes the Object.
  template <class Write>
  void addObject(std::string_view key, Write write) {
    json_.key(key);
    Object object(json_);
    write(object);
  }
  // `write` takes the Object and the index, from 0 to before `count`.
  template <class Write>
  void addObjects(std::string_view key, size_t count, Write write) {
    json_.key(key);
    json_.openArray();
    for (size_t i = 0; i < count; ++i) {
      Object object(json_);
      write(object, i);
    }
    json_.closeArray();
  }
  void addTexts(std::string_view key, const std::vector<std::string>& texts) {
    json_.key(key);
    json_.openArray();
    for (const std::string& text : texts) json_.value(text.c_str());
    json_.closeArray();
  }

 private:
  template <class Value>
  void addValue(std::string_view key, Value value) {
    json_.key(key);
    json_.value(value);
  }

  JsonText& json_;
};

void writeUri(Object& object, const UriFacts& uri) {
  object.add("text", uri.text);
  object.add("scheme", uri.url == nullptr ? nullptr : uri.url->GetScheme());
  object.add("host", uri.url == nullptr ? nullptr : uri.url->GetHost());
  object.add("network", uri.url == nullptr ? nullptr : uri.homeNetwork ? "home" : "Internet");
}

void writeQuick(Object& object, const QuickFacts& quick) {
  object.add("asked", quick.asked);
  object.addObjects("tried", quick.tried.size(), [&](Object& test, size_t i) {
    test.add("in", quick.tried[i]->ofUri ? "uri" : "metadata");
    test.add("contains", quick.tried[i]->contains);
    test.add("accepts", quick.tried[i] == quick.accepted);
  });
  object.add("mimeType", quick.mimeType);
}

void writeMetadata(Object& object, const Explanation& explanation) {
  const MetadataFacts& metadata = explanation.metadata;
  const bool lookedAt = explanation.quick.accepted == nullptr;
  object.add("state", lookedAt ? metadataWords(metadata.state) : "not looked at");
  object.add("objects", metadata.objects);
  object.add("title", metadata.title);
  object.add("resCount", static_cast<int>(explanation.res.size()));
}

void writeRes(Object& object, const ResFacts& res, const TarqDlnaResMetadata& record) {
  object.add("protocolInfo", res.protocolInfo);
  object.add("url", res.url);
  object.add("requested", res.requested);
  object.add("skipped", skipWords(record.skip));
  object.add("wrappedContentFormat", res.wrappedContentFormat ? res.wrappedContentFormat->c_str() : nullptr);
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
  object.addTexts("notes", res.notes);
}

void writePoints(Object& object, const ResPoints& points) {
  for (const PointCause& cause : pointCauses()) object.add(cause.key, points.*cause.points);
  object.add("total", points.total());
}

void writeCandidate(Object& object, const Explanation& explanation, size_t i) {
  const TarqDlnaResMetadata& record = explanation.records[i];
  const ResContestKind contest = explanation.choice.contest;
  const bool mpo = contest == ResContestKind::kMpo;
  const bool eligible = !isOut(record.score.rule);
  object.add("index", static_cast<int>(i));
  object.add("eligible", eligible);
  object.add("rule", mpo ? nullptr : ruleKey(record.score.rule));
  object.add("excludedBecause", eligible ? nullptr : exclusionReason(explanation, i).c_str());
  object.add("format", eligible ? record.format : nullptr);
  if (mpo) {
    object.add("rank", record.score.mpo.rank);
    object.add("pixelsFromFullHd", record.score.mpo.overArea);
    object.add("fullHd", record.score.mpo.fullHd);
    return;
  }
  object.addObject("primary", [&](Object& points) { writePoints(points, record.score.primary); });
  if (!wordsOf(contest).twoScores) return;
  object.addObject("secondary", [&](Object& points) { writePoints(points, record.score.secondary); });
}

void writeContest(Object& object, const Explanation& explanation) {
  object.add("name", wordsOf(explanation.choice.contest).key);
  object.add("reason", contestReason(explanation));
  object.addObjects("candidates", explanation.records.size(),
                    [&](Object& candidate, size_t i) { writeCandidate(candidate, explanation, i); });
  object.addIndex("winner", explanation.choice.winner);
  object.add("lead", leadWords(explanation));
}

void writeAnswer(Object& object, const Explanation& explanation) {
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

void writeProbe(Object& object, const Explanation& explanation) {
  object.add("notProbedBecause", explanation.probe ? nullptr : whyNotProbed(explanation));
  if (!explanation.probe) return;
  const ProbeFacts& probe = *explanation.probe;
  object.add("url", probe.url);
  object.add("isHttp", probe.isHttp);
  object.add("transferMode", transferModeWord(probe.transferMode));
  object.add("contentFeatures", true);
  object.add("decidesAlone", explanation.choice.winner < 0);
  const auto outcomes = probeOutcomes();
  object.addObjects("outcomes", outcomes.size(), [&](Object& outcome, size_t i) {
    outcome.add("answer", outcomes[i].answer);
    outcome.add("code", outcomes[i].code);
  });
  object.add("sent", probe.isHttp && explanation.verdict.code.has_value());
  if (!probe.isHttp || !explanation.verdict.code) return object.addNull("answer");
  object.addObject("answer", [&](Object& answer) { writeAnswer(answer, explanation); });
}

void writeVerdict(Object& object, const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  if (!verdict.code) {
    object.addNull("code");
    object.add("message", "depends on the server's answer");
    object.add("resIndex", explanation.choice.winner);
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

void writeExplanation(JsonText& json, const Explanation& explanation) {
  const ResChoice& choice = explanation.choice;
  Object object(json);
  object.add("region", explanation.region);
  object.addObject("uri", [&](Object& uri) { writeUri(uri, explanation.uri); });
  object.addObject("quick", [&](Object& quick) { writeQuick(quick, explanation.quick); });
  object.addObject("metadata", [&](Object& metadata) { writeMetadata(metadata, explanation); });
  object.addObjects("res", explanation.res.size(), [&](Object& res, size_t i) {
    writeRes(res, explanation.res[i], explanation.records[i]);
  });
  object.add("kind", choice.kindFrom < 0 ? nullptr : categoryWord(choice.kind));
  object.addIndex("decidedBy", choice.kindFrom);
  if (choice.contestHeld()) {
    object.addObject("contest", [&](Object& contest) { writeContest(contest, explanation); });
  } else {
    object.addNull("contest");
  }
  object.addObject("probe", [&](Object& probe) { writeProbe(probe, explanation); });
  object.addObject("verdict", [&](Object& verdict) { writeVerdict(verdict, explanation); });
}
