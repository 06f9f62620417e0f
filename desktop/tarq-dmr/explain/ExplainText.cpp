#include <algorithm>

#include "ContestWords.h"
#include "ExplainWords.h"
#include "ResultText.h"
#include "TextOutput.h"
#include "TextTable.h"

namespace {

// A server's string on one line of a sensible length; --json has it whole.
std::string shown(const char* string, size_t limitBytes = 160) {
  if (string == nullptr) return "";
  if (*string == '\0') return "\"\"";
  std::string line = printable(string);
  if (line.size() <= limitBytes) return line;
  size_t end = limitBytes - 3;
  while (end > 0 && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80) --end;  // no half characters
  return line.substr(0, end) + "...";
}

std::string numberText(int number) { return std::to_string(number); }
std::string resText(int index) { return "res " + numberText(index); }

// The numbered steps, as they come.
class Steps {
 public:
  void begin(const std::string& title) {
    text_ += (step_ == 0 ? "" : "\n") + numberText(step_ + 1) + ". " + title + "\n";
    ++step_;
  }
  void row(std::string_view label, const std::string& text) {
    text_ += "  " + std::string(label) + std::string(kLabelWidth - label.size(), ' ') + text + "\n";
  }
  void add(const std::string& lines) { text_ += lines; }
  const std::string& text() const { return text_; }

 private:
  static constexpr size_t kLabelWidth = 12;

  std::string text_;
  int step_ = 0;
};

void showUri(Steps& steps, const UriFacts& uri, int32_t region) {
  steps.begin("The URI");
  steps.row("uri", shown(uri.text));
  if (uri.url == nullptr) {
    steps.row("read as", "not a URL with a scheme and a host: no quick test, and no server to ask");
  } else {
    steps.row("read as", "scheme " + shown(uri.url->GetScheme()) + ", host " + shown(uri.url->GetHost()) +
                             (uri.homeNetwork ? ": an IPv4 address, so on the home network"
                                              : ": a name, so on the Internet"));
  }
  steps.row("region", numberText(region));
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

void showMetadata(Steps& steps, const Explanation& explanation) {
  const MetadataFacts& metadata = explanation.metadata;
  if (metadata.state != MetadataState::kRead) {
    return steps.begin(std::string("The metadata offers nothing: ") + metadataWords(metadata.state));
  }
  steps.begin("The metadata");
  if (metadata.title != nullptr) steps.row("title", shown(metadata.title));
  steps.row("objects",
            numberText(metadata.objects) + (metadata.objects > 1 ? ", only the first counts" : ""));
  steps.row("res", numberText(static_cast<int>(explanation.res.size())));
}

std::string profileNames(const TarqDlnaResMetadata& record) {
  std::string names = shown(record.dlnaPn.c_str(), 40);
  const auto add = [&names](const char* label, const VondString& name) {
    if (name.c_str() != nullptr) names += (names.empty() ? "" : ", ") + (label + shown(name.c_str(), 40));
  };
  add("ORSA.COM_PN=", record.orsaPn);
  add("ARIB.OR.JP_PN=", record.aribPn);
  return names;
}

// What the table has no room for.
void showResDetails(Steps& steps, const Explanation& explanation) {
  const auto orNone = [](const char* string, const char* name) {
    return string == nullptr ? std::string("no ") + name : shown(string);
  };
  std::string requested;
  for (size_t i = 0; i < explanation.res.size(); ++i) {
    const ResFacts& res = explanation.res[i];
    const std::string name = resText(static_cast<int>(i));
    steps.row(name, orNone(res.url, "URL"));
    steps.row("", orNone(res.protocolInfo, "protocolInfo"));
    if (res.wrappedContentFormat) {
      steps.row("", "its MIME type is the CONTENTFORMAT parameter of the third field");
    }
    for (const std::string& note : res.notes) steps.row("", printable(note));
    if (res.requested) requested += (requested.empty() ? "" : ", ") + name;
  }
  steps.row("requested",
            requested.empty() ? "the URI is not the URL of any res" : "the URI is the URL of " + requested);
}

void showRes(Steps& steps, const Explanation& explanation) {
  steps.begin("Each res element");
  TextTable table({">res", "is", "decided by", "MIME type", "extension", "profile name", "converted",
                   "resolution", ">pictures"});
  for (size_t i = 0; i < explanation.res.size(); ++i) {
    const TarqDlnaResMetadata& record = explanation.records[i];
    const std::string index = numberText(static_cast<int>(i));
    if (const char* skipped = skipWords(record.skip)) {
      table.addRow({index, std::string("skipped: ") + skipped});
      continue;
    }
    const char* stage = stageWord(record.categoryBy);
    table.addRow({index, categoryWord(record.category), stage == nullptr ? "" : stage,
                  shown(record.mimeType.c_str(), 40), shown(record.extension.c_str(), 20),
                  profileNames(record), record.notConverted ? "no" : "yes", shown(record.resolution, 20),
                  record.mpfEntries == 0 ? "" : numberText(record.mpfEntries)});
  }
  steps.add(table.text());
  showResDetails(steps, explanation);
}

// The causes that give some candidate points; the columns of the others stay empty.
std::vector<bool> causesThatMatter(const Explanation& explanation) {
  std::vector<bool> matters;
  for (const PointCause& cause : pointCauses()) {
    matters.push_back(std::ranges::any_of(explanation.records, [&](const TarqDlnaResMetadata& record) {
      return record.score.counted().*cause.points != 0;
    }));
  }
  return matters;
}

std::vector<std::string> pointCells(const TarqDlnaResMetadata& record, const std::vector<bool>& matters) {
  const ResPoints& points = record.score.counted();
  std::vector<std::string> cells = {shown(record.format)};
  for (size_t cause = 0; cause < matters.size(); ++cause) {
    cells.push_back(matters[cause] ? numberText(points.*pointCauses()[cause].points) : "");
  }
  const bool secondary = &points == &record.score.secondary;
  cells.push_back(secondary ? "" : numberText(points.total()));
  cells.push_back(secondary ? numberText(points.total()) : "");
  cells.push_back(ruleWords(record.score.rule) + std::string(points.total() > 0 ? "" : "; not above 0"));
  return cells;
}

std::vector<std::string> mpoCells(const TarqDlnaResMetadata& record) {
  const MpoRank& mpo = record.score.mpo;
  return {numberText(mpo.rank), numberText(record.mpfEntries), record.notConverted ? "no" : "yes",
          mpo.fullHd ? "full HD" : (mpo.overArea > 0 ? "+" : "") + numberText(mpo.overArea)};
}

TextTable newCandidateTable(ResContestKind contest) {
  if (contest == ResContestKind::kMpo)
    return TextTable({">res", ">rank", ">pictures", "converted", ">pixels from full HD"});
  std::vector<std::string> headings = {">res", "played as"};
  for (const PointCause& cause : pointCauses()) headings.push_back(std::string(">") + cause.name);
  headings.emplace_back(wordsOf(contest).twoScores ? ">primary" : ">total");
  headings.emplace_back(">secondary");
  headings.emplace_back("decided by");
  return TextTable(std::move(headings));
}

void showCandidates(Steps& steps, const Explanation& explanation) {
  const bool mpo = explanation.choice.contest == ResContestKind::kMpo;
  const std::vector<bool> matters = causesThatMatter(explanation);
  TextTable table = newCandidateTable(explanation.choice.contest);
  for (size_t i = 0; i < explanation.records.size(); ++i) {
    const TarqDlnaResMetadata& record = explanation.records[i];
    const int index = static_cast<int>(i);
    std::vector<std::string> cells = {(index == explanation.choice.winner ? "> " : "") + numberText(index)};
    if (isOut(record.score.rule)) {
      cells.push_back("out: " + shown(exclusionReason(explanation, i).c_str(), 400));
    } else {
      const auto more = mpo ? mpoCells(record) : pointCells(record, matters);
      cells.insert(cells.end(), more.begin(), more.end());
    }
    table.addRow(std::move(cells));
  }
  steps.add(table.text());
}

void showContest(Steps& steps, const Explanation& explanation) {
  const ResChoice& choice = explanation.choice;
  if (!choice.contestHeld()) return steps.begin("No contest: no res is photo, music or video");
  steps.begin(std::string("The ") + wordsOf(choice.contest).name + " contest");
  steps.row("the object", std::string("is ") + categoryNoun(choice.kind) + ": " +
                              (choice.kind == kCategoryPhoto
                                   ? "no res is music or video"
                                   : resText(choice.kindFrom) + " is the last that is music or video"));
  steps.row("so", contestReason(explanation));
  steps.row("won by", wordsOf(choice.contest).howWon);
  showCandidates(steps, explanation);
  if (choice.winner < 0) return steps.row("winner", "none: " + leadWords(explanation));
  const char* format = explanation.format();
  steps.row("winner", resText(choice.winner) +
                          (format == nullptr ? ", without a format" : std::string(", as ") + format));
  steps.row("lead", leadWords(explanation));
}

void showAnswer(Steps& steps, const Verdict& verdict, bool byTable) {
  if (const TarqResourceInfo* resource = verdict.resource()) {
    steps.row("answer", std::string("MIME type ") + shown(resource->mimeType) + ", content features " +
                            shown(resource->additionalInfo));
    if (byTable)
      steps.row("looked up", shown(formatKeyWords(resource->mimeType, resource->additionalInfo).c_str()));
    return;
  }
  steps.row("answer", describe(*verdict.code));
  if (!verdict.answer) return;
  const VondHspDlnaResponse& response = verdict.answer->response;
  if (verdict.answer->clientError != 0)
    return steps.row("asked again",
                     "no answer (client error " + numberText(verdict.answer->clientError) + ")");
  const auto orDash = [](const char* string) { return string == nullptr ? std::string("-") : shown(string); };
  steps.row("asked again", "status " + numberText(response.GetStatusCode()) + ", content type " +
                               orDash(response.GetContentType()) + ", content features " +
                               orDash(response.GetContentFeatures()));
  if (byTable && verdict.code == kNothingPlayable)
    steps.row("looked up",
              shown(formatKeyWords(response.GetContentType(), response.GetContentFeatures()).c_str()));
}

void showOutcomes(Steps& steps, bool byTable) {
  bool first = true;
  for (const ProbeOutcome& outcome : probeOutcomes()) {
    std::string answer = outcome.answer;
    answer.resize(26, ' ');
    std::string words = numberText(outcome.code) + ": " + describe(outcome.code);
    if (outcome.code == kAccepted)
      words += byTable ? " if the table knows the answer, else " + numberText(kNothingPlayable)
                       : ", with the MIME type and content features of the answer";
    steps.row(first ? "outcomes" : "", answer + words);
    first = false;
  }
}

void showProbe(Steps& steps, const Explanation& explanation) {
  if (!explanation.probe) {
    return steps.begin(std::string("No server is asked: ") + whyNotProbed(explanation));
  }
  const ProbeFacts& probe = *explanation.probe;
  steps.begin("The server decides");
  steps.row("request", "HEAD " + shown(probe.url));
  if (!probe.isHttp) return steps.row("", "not sent: not an http:// URI");
  const char* mode = transferModeWord(probe.transferMode);
  steps.row("headers", std::string("getcontentFeatures.dlna.org: 1") +
                           (mode == nullptr ? "" : std::string("; transferMode.dlna.org: ") + mode));
  const bool byTable = explanation.choice.winner < 0;
  if (byTable) {
    steps.row("looked up", "in the media profile table (tarq-dmr sink --region " +
                               numberText(explanation.region) + "): the first profile");
    steps.row("", "name in the answer's content features or, without any, its content type");
  }
  if (explanation.verdict.code) {
    showAnswer(steps, explanation.verdict, byTable);
  } else {
    showOutcomes(steps, byTable);
  }
}

std::string chosenText(int resIndex, const char* format) {
  return (resIndex < 0 ? std::string("no res") : resText(resIndex)) + ", " +
         (format == nullptr ? "no format" : std::string("format ") + format);
}

std::string verdictText(const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  if (!verdict.code) {
    const int winner = explanation.choice.winner;
    return "undecided: depends on the server's answer (use --probe): " +
           (winner < 0 ? std::string("no res plays, so the answer alone decides")
                       : chosenText(winner, explanation.format()) + " if it confirms");
  }
  const std::string code = " (" + numberText(*verdict.code) + "): ";
  const TarqResourceInfo* resource = verdict.resource();
  if (resource == nullptr) return "refused" + code + describe(*verdict.code);
  if (explanation.quick.accepted != nullptr)
    return "accepted" + code + "as " + shown(resource->mimeType) + ", no res chosen";
  return "accepted" + code +
         chosenText(resource->resIndex,
                    resource->contentFormat == nullptr ? nullptr : resource->contentFormat->c_str());
}

}  // namespace

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
