#ifndef TARQ_DMR_EXPLANATION_H_
#define TARQ_DMR_EXPLANATION_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CheckRules.h"
#include "TarqDlnaResSelection.h"
#include "TarqDmrParamsInterface.h"
#include "VondHspClient.h"
#include "VondURL.h"

// Everything that a check of one resource looks at and why each step came out as it did, in the order of the
// check. The facts come from the code that decides (selection/, resource/CheckRules.h) and from the plug-in's
// own checker; nothing here decides anything.
// Threads: an explanation belongs to one thread. Owns: the parsed metadata and all texts but the URI.
// Null: a text that is absent.

struct UriFacts {
  const char* text;
  std::unique_ptr<VondURL> url;  // null: no URL
  bool homeNetwork = false;
};

struct QuickFacts {
  bool asked = false;                   // they need a URL and metadata
  std::vector<const QuickTest*> tried;  // up to the one that accepted
  const QuickTest* accepted = nullptr;  // null: none
  const char* mimeType = nullptr;       // what it is accepted as
};

enum class MetadataState { kAbsent, kNotParsed, kNoObject, kNoRes, kRead };

struct MetadataFacts {
  MetadataState state = MetadataState::kAbsent;
  std::unique_ptr<TARQ_Result, void (*)(TARQ_Result*)> document{nullptr, TARQ_Result_DestroyResult};
  int objects = 0;
  const char* title = nullptr;  // of the first object, the only one that counts
};

// One `res` element beside its record.
struct ResFacts {
  const char* protocolInfo = nullptr;
  const char* url = nullptr;
  const char* skipped = nullptr;  // why nothing of it was read; null: it was read
  CategoryStage stage = CategoryStage::kNone;
  std::optional<std::string> wrapped;  // the third field, where the MIME type stands in its CONTENTFORMAT
  std::vector<std::string> notes;      // what else is worth knowing, a sentence each
};

struct ContestFacts {
  ResContestKind kind = ResContestKind::kNone;  // the one that was held
  std::string reason;                           // why this one
  std::vector<ResScore> scores;                 // by candidate; of the multi-picture contest all 0
  std::vector<MpoPhoto> photos;                 // of the multi-picture contest, else empty
  std::vector<std::string> outFor;              // by candidate: why it is out; empty: it is in
  int winner = -1;
  std::string lead;  // what the winner is ahead by
};

// A HEAD request that the check sends, or would send.
struct ProbeFacts {
  const char* url;
  bool isHttp;  // else it is refused without a request
  int transferMode;
};

// The server's answer, asked once more where the check's result code does not tell enough of it.
struct AnswerFacts {
  int clientError = 0;
  VondHspDlnaResponse response;
};

struct Verdict {
  std::optional<int> code;  // none: it hangs on a request that was not sent
  std::unique_ptr<TarqResourceCheckerInterface> checker;
  std::optional<AnswerFacts> answer;

  const TarqResourceInfo* resource() const {  // null unless accepted
    return code == kAccepted ? checker->GetResource() : nullptr;
  }
};

struct Explanation {
  int32_t region = 0;
  UriFacts uri;
  QuickFacts quick;
  MetadataFacts metadata;
  bool rvu = false;
  std::vector<TarqDlnaResMetadata> records;
  std::vector<ResFacts> res;
  int deciding = -1;                    // the record that told the media kind
  std::optional<ContestFacts> contest;  // none: no element is photo, music or video
  std::optional<ProbeFacts> probe;      // none: nobody is asked
  Verdict verdict;

  int winner() const { return contest ? contest->winner : -1; }
  const char* format() const {
    return winner() < 0 ? nullptr : records[static_cast<size_t>(winner())].format.c_str();
  }
};

// `uri` must outlive the result; `metadata` may be null. `probe`: the check may ask the server. `params` is
// the plug-in's; its region becomes `region`.
Explanation explain(TarqDmrParamsInterface& params, const char* uri, const char* metadata, int32_t region,
                    bool probe);

// Step by step for people; what to play or why not in the last line.
std::string explanationText(const Explanation& explanation);

class JsonWriter;
// One object, its keys in the order of the steps.
void writeExplanation(JsonWriter& json, const Explanation& explanation);

#endif  // TARQ_DMR_EXPLANATION_H_
