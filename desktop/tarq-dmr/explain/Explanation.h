#ifndef TARQ_DMR_EXPLANATION_H_
#define TARQ_DMR_EXPLANATION_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CheckRules.h"
#include "Metadata.h"
#include "TarqDlnaResSelection.h"
#include "TarqDmrParamsInterface.h"
#include "VondHspClient.h"
#include "VondURL.h"

// Everything that a check of one resource looks at and what each step found, in the order of the check. The
// facts come from the code that decides (selection/, resource/rules/) and from the plug-in's own checker;
// nothing here decides anything.
// Null: a string that is absent.
// Ownership: the parsed metadata and all strings except the URI.
// Threads: an explanation belongs to one thread.

struct UriFacts {
  const char* text;
  std::unique_ptr<VondURL> url;  // null: not a URL
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
  std::optional<MetadataProblem> problem;  // of metadata that does not parse
  int objects = 0;
  const char* title = nullptr;  // of the first object, the only one that counts
};

// One `res` element as written; the selection's record stands beside it.
struct ResFacts {
  const char* protocolInfo = nullptr;
  const char* url = nullptr;
  bool requested = false;          // its URL is the URI that was asked for
  std::vector<std::string> notes;  // what else is worth knowing, a sentence each
};

// A HEAD request that the check sends, or would send.
struct ProbeFacts {
  const char* url;
  bool isHttp;  // otherwise it is refused without a request
  TransferMode transferMode;
};

// The server's answer, asked for once more where the check's result code does not say enough about it.
struct AnswerFacts {
  int clientError = 0;
  VondHspDlnaResponse response;
};

struct Verdict {
  std::optional<int> code;  // none: it depends on a request that was not sent
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
  std::vector<TarqDlnaResMetadata> records;  // what the selection read, decided and scored
  std::vector<ResFacts> res;
  ResChoice choice;
  std::optional<ProbeFacts> probe;  // none: no server is asked
  Verdict verdict;

  const ResScore& scoreOf(int index) const { return records[static_cast<size_t>(index)].score; }
  const char* format() const {  // of the winner
    return choice.winner < 0 ? nullptr : records[static_cast<size_t>(choice.winner)].format;
  }
};

// Whether a server may be asked.
enum class Asking {
  kNever,
  kAsTheCheck,   // by the check
  kWhenUnclear,  // and once more where the check's result code does not say enough about its answer
};

// `params` is the plug-in's; its region becomes `region`.
// Null: `metadata` may be null.
// Ownership: `uri` must outlive the result.
Explanation explain(TarqDmrParamsInterface& params, const char* uri, const char* metadata, int32_t region,
                    Asking asking);

// Step by step for people; the last line is the verdict.
std::string explanationText(const Explanation& explanation);

// The choice on one line.
std::string choiceLine(const Explanation& explanation);

// Why one that is refused is refused.
std::string refusedText(const Explanation& explanation);

class JsonWriter;
// One object, its keys in the order of the steps.
void writeExplanation(JsonWriter& json, const Explanation& explanation);

#endif  // TARQ_DMR_EXPLANATION_H_
