#include <cstring>

#include "ContestWords.h"
#include "ExplainWords.h"
#include "ResText.h"
#include "ResultText.h"

namespace {

const char* networkWords(const UriFacts& uri) {
  if (uri.homeNetwork) return ": an IPv4 address, so on the home network";
  const bool ipv6 = std::strchr(uri.url->GetHost(), ':') != nullptr;
  return ipv6 ? ": an IPv6 address, which counts as the Internet" : ": a name, so on the Internet";
}

std::string readAs(const UriFacts& uri) {
  if (uri.url == nullptr) return "not a URL with a scheme and a host: no quick test, and no server to ask";
  return "scheme " + shown(uri.url->GetScheme()) + ", host " + shown(uri.url->GetHost()) + networkWords(uri);
}

void showUri(Steps& steps, const UriFacts& uri, int32_t region) {
  steps.begin("The URI");
  steps.row("uri", shown(uri.text));
  steps.row("read as", readAs(uri));
  steps.row("region", std::to_string(region));
}

std::string lookedFor(const QuickTest& test) {
  return quoted(test.contains) + (test.ofUri ? " in the URI" : " in the metadata");
}

void showQuickTests(Steps& steps, const Explanation& explanation) {
  const QuickFacts& quick = explanation.quick;
  if (!quick.asked) {
    return steps.begin(std::string("Quick tests: skipped, there is no ") +
                       (explanation.uri.url == nullptr ? "URL" : "metadata"));
  }
  if (quick.accepted != nullptr) {
    steps.begin("Quick tests: accepted");
    steps.row("found", lookedFor(*quick.accepted));
    return steps.row("played as", std::string(quick.mimeType) + "; nothing else in the metadata is read");
  }
  steps.begin("Quick tests: none accepts it");
  for (const QuickTest* test : quick.tried)
    steps.row(test == quick.tried.front() ? "not found" : "", lookedFor(*test));
}

// They may name the root element of another document.
std::string shownWords(const MetadataFacts& metadata) { return shown(metadataWords(metadata).c_str()); }

void showMetadata(Steps& steps, const Explanation& explanation) {
  const MetadataFacts& metadata = explanation.metadata;
  if (metadata.state != MetadataState::kRead) {
    return steps.begin(std::string("The metadata offers nothing: ") + shownWords(metadata));
  }
  steps.begin("The metadata");
  if (metadata.title != nullptr) steps.row("title", shown(metadata.title));
  steps.row("objects",
            std::to_string(metadata.objects) + (metadata.objects > 1 ? ", only the first counts" : ""));
  steps.row("res", std::to_string(explanation.res.size()));
}

std::string orDash(const char* string) { return string == nullptr ? "-" : shown(string); }

// The row of the media profile table that an answer leads to, when the answer alone decides.
void showLookup(Steps& steps, const char* mimeType, const char* contentFeatures) {
  steps.row("looked up", shown(formatKeyWords(mimeType, contentFeatures).c_str()));
}

void showAccepted(Steps& steps, const TarqResourceInfo& resource, bool byTable) {
  steps.row("answer",
            "MIME type " + shown(resource.mimeType) + ", content features " + shown(resource.additionalInfo));
  if (byTable) showLookup(steps, resource.mimeType, resource.additionalInfo);
}

void showAskedAgain(Steps& steps, const AnswerFacts& answer, bool byTable) {
  if (answer.clientError != 0) {
    return steps.row("asked again", std::string("no answer: ") + VondHspErrorText(answer.clientError) +
                                        " (client error " + std::to_string(answer.clientError) + ")");
  }
  const VondHspDlnaResponse& response = answer.response;
  steps.row("asked again", "status " + std::to_string(response.GetStatusCode()) + ", content type " +
                               orDash(response.GetContentType()) + ", content features " +
                               orDash(response.GetContentFeatures()));
  if (byTable) showLookup(steps, response.GetContentType(), response.GetContentFeatures());
}

void showAnswer(Steps& steps, const Verdict& verdict, bool byTable) {
  if (const TarqResourceInfo* resource = verdict.resource()) return showAccepted(steps, *resource, byTable);
  steps.row("answer", refusalWords(verdict));
  const bool lookedUp = byTable && verdict.code == kNothingPlayable;
  if (verdict.answer) showAskedAgain(steps, *verdict.answer, lookedUp);
}

std::string outcomeWords(int code, bool byTable) {
  std::string words = std::to_string(code) + ": " + describe(code);
  if (code != kAccepted) return words;
  return words + (byTable ? " if the table knows the answer, else " + std::to_string(kNothingPlayable)
                          : ", with the MIME type and content features of the answer");
}

void showOutcomes(Steps& steps, bool byTable) {
  const char* label = "outcomes";
  for (const ProbeOutcome& outcome : probeOutcomes()) {
    std::string answer = outcome.answer;
    answer.resize(26, ' ');
    steps.row(label, answer + outcomeWords(outcome.code, byTable));
    label = "";
  }
}

void showRequest(Steps& steps, const Explanation& explanation, bool byTable) {
  const char* mode = transferModeWord(explanation.probe->transferMode);
  steps.row("headers", std::string("getcontentFeatures.dlna.org: 1") +
                           (mode == nullptr ? "" : std::string("; transferMode.dlna.org: ") + mode));
  if (!byTable) return;
  steps.row("looked up", "in the media profile table (tarq-dmr sink --region " +
                             std::to_string(explanation.region) + "): the first profile");
  steps.row("", "name in the answer's content features or, without any, its content type");
}

void showProbe(Steps& steps, const Explanation& explanation) {
  if (!explanation.probe) {
    return steps.begin(std::string("No server is asked: ") + whyNotProbed(explanation).words);
  }
  steps.begin("The server decides");
  steps.row("request", "HEAD " + shown(explanation.probe->url));
  if (!explanation.probe->isHttp) return steps.row("", "not sent: not an http:// URI");
  const bool byTable = explanation.choice.winner < 0;
  showRequest(steps, explanation, byTable);
  if (explanation.verdict.code) return showAnswer(steps, explanation.verdict, byTable);
  showOutcomes(steps, byTable);
}

std::string chosenText(int resIndex, const char* format) {
  return (resIndex < 0 ? std::string("no res") : resText(resIndex)) + ", " +
         (format == nullptr ? "no format" : std::string("format ") + format);
}

// Why no element was chosen.
std::string finding(const Explanation& explanation) {
  const MetadataFacts& metadata = explanation.metadata;
  if (metadata.state != MetadataState::kRead) return "the metadata offers nothing: " + shownWords(metadata);
  if (!explanation.choice.contestHeld()) return "no res is photo, music or video";
  const std::optional<ResChange> first = firstChange(explanation);
  return first ? resText(first->index) + " " + wouldBe(first->change) : "no res plays";
}

std::string undecidedText(const Explanation& explanation) {
  const int winner = explanation.choice.winner;
  return "undecided: depends on the server's answer (use --probe): " +
         (winner < 0 ? finding(explanation) : chosenText(winner, explanation.format()) + " if it confirms");
}

std::string acceptedText(const Explanation& explanation, const TarqResourceInfo& resource) {
  if (explanation.quick.accepted != nullptr) return "as " + shown(resource.mimeType) + ", no res chosen";
  const VondString* format = resource.contentFormat;
  return chosenText(resource.resIndex, format == nullptr ? nullptr : format->c_str());
}

std::string verdictText(const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  if (!verdict.code) return undecidedText(explanation);
  const std::string code = " (" + std::to_string(*verdict.code) + "): ";
  const TarqResourceInfo* resource = verdict.resource();
  if (resource == nullptr) return "refused" + code + refusedText(explanation);
  return "accepted" + code + acceptedText(explanation, *resource);
}

}  // namespace

std::string refusedText(const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  const bool nothing = verdict.code == kNothingPlayable && explanation.choice.winner < 0;
  return refusalWords(verdict) + (nothing ? ": " + finding(explanation) : std::string());
}

std::string choiceLine(const Explanation& explanation) {
  if (explanation.quick.accepted != nullptr) {
    return std::string("no res needed, as ") + shown(explanation.quick.mimeType);
  }
  const int winner = explanation.choice.winner;
  if (winner < 0) return finding(explanation);
  const bool original = explanation.records[static_cast<size_t>(winner)].notConverted;
  return resText(winner) + " of " + std::to_string(explanation.res.size()) + ", " +
         (explanation.format() == nullptr ? "no format" : explanation.format()) +
         (original ? ", original, " : ", converted, ") + leadWords(explanation);
}

std::string explanationText(const Explanation& explanation) {
  Steps steps;
  showUri(steps, explanation.uri, explanation.region);
  showQuickTests(steps, explanation);
  if (explanation.quick.accepted == nullptr) {
    showMetadata(steps, explanation);
    if (!explanation.res.empty()) {
      showRes(steps, explanation);
      showContest(steps, explanation);
    }
    showProbe(steps, explanation);
  }
  return steps.text() + "\nVerdict: " + verdictText(explanation) + "\n";
}
