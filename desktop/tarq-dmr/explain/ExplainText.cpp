#include <algorithm>

#include "ContestFacts.h"
#include "ExplainWords.h"
#include "ResultText.h"
#include "TextOutput.h"
#include "TextTable.h"

namespace {

// A server's text on one line of a sensible length; --json has it whole.
std::string shown(const char* text, size_t limitBytes = 160) {
  if (text == nullptr) return "";
  if (*text == '\0') return "\"\"";
  std::string line = printable(text);
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
    steps.row("read as", "no URL with a scheme and a host: no quick test, and no server to ask");
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
    return steps.begin(std::string("Quick tests: not asked, there is no ") +
                       (explanation.uri.url == nullptr ? "URL" : "metadata"));
  }
  if (quick.accepted != nullptr) {
    steps.begin("Quick tests: accepted");
    steps.row("found", lookedFor(*quick.accepted));
    return steps.row("played as",
                     std::string(quick.mimeType) + "; nothing else of the metadata is looked at");
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

void showRes(Steps& steps, const Explanation& explanation) {
  steps.begin("Each res element");
  TextTable table({">res", "is", "told by", "MIME type", "extension", "profile name", "converted",
                   "resolution", ">pictures"});
  std::string notes;
  for (size_t i = 0; i < explanation.res.size(); ++i) {
    const ResFacts& res = explanation.res[i];
    const TarqDlnaResMetadata& record = explanation.records[i];
    const std::string index = numberText(static_cast<int>(i));
    if (res.skipped != nullptr) {
      table.addRow({index, std::string("skipped: ") + res.skipped});
      continue;
    }
    const char* stage = stageWord(res.stage);
    table.addRow({index, categoryWord(record.category), stage == nullptr ? "" : stage,
                  shown(record.mimeType.c_str(), 40), shown(record.extension.c_str(), 20),
                  profileNames(record), record.notConverted ? "no" : "yes",
                  shown(record.resolution.c_str(), 20),
                  record.mpfEntries == 0 ? "" : numberText(record.mpfEntries)});
    if (res.wrapped)
      notes += "  res " + index + ": its MIME type is the CONTENTFORMAT in " +
               shown(res.wrapped->c_str(), 60) + "\n";
    for (const std::string& note : res.notes) notes += "  res " + index + ": " + printable(note) + "\n";
  }
  steps.add(table.text() + notes);
}

// A cause that gives nobody points has an empty column.
std::vector<std::string> pointCells(const ContestFacts& contest, size_t i,
                                    const TarqDlnaResMetadata& record) {
  const ResScore& score = contest.scores[i];
  const ResPoints& points = countedPoints(score);
  std::vector<std::string> cells = {shown(record.format.c_str())};
  for (const auto cause : {&ResPoints::format, &ResPoints::position, &ResPoints::notConverted,
                           &ResPoints::resolution, &ResPoints::nearest}) {
    const bool matters = std::ranges::any_of(
        contest.scores, [&](const ResScore& other) { return countedPoints(other).*cause != 0; });
    cells.push_back(matters ? numberText(points.*cause) : "");
  }
  const bool secondary = &points == &score.secondary;
  cells.push_back(secondary ? "" : numberText(points.total()));
  cells.push_back(secondary ? numberText(points.total()) : "");
  cells.push_back(ruleWords(score.rule, record) + std::string(points.total() > 0 ? "" : "; not above 0"));
  return cells;
}

std::vector<std::string> mpoCells(const MpoPhoto& photo, const TarqDlnaResMetadata& record) {
  return {numberText(photo.rank), numberText(record.mpfEntries), record.notConverted ? "no" : "yes",
          photo.fullHd ? "full HD" : (photo.overArea > 0 ? "+" : "") + numberText(photo.overArea)};
}

TextTable newCandidateTable(const ContestFacts& contest) {
  if (contest.kind == ResContestKind::kMpo)
    return TextTable({">res", ">rank", ">pictures", "converted", ">pixels from full HD"});
  const bool twoScores = wordsOf(contest.kind).twoScores;
  return TextTable({">res", "played as", ">format", ">position", ">original", ">size", ">nearest",
                    twoScores ? ">primary" : ">total", ">secondary", "by"});
}

void showContest(Steps& steps, const Explanation& explanation) {
  if (!explanation.contest) return steps.begin("No contest: no res is photo, music or video");
  const ContestFacts& contest = *explanation.contest;
  const int kind = explanation.records[static_cast<size_t>(explanation.deciding)].category;
  steps.begin(std::string("The ") + wordsOf(contest.kind).name + " contest");
  steps.row("the object", std::string("is ") + categoryNoun(kind) + ": " +
                              (kind == kCategoryPhoto
                                   ? "no res is music or video"
                                   : resText(explanation.deciding) + " is the last that is music or video"));
  steps.row("so", contest.reason);
  steps.row("won by", wordsOf(contest.kind).howWon);
  TextTable table = newCandidateTable(contest);
  for (size_t i = 0; i < contest.outFor.size(); ++i) {
    const int index = static_cast<int>(i);
    std::vector<std::string> cells = {(index == contest.winner ? "> " : "") + numberText(index)};
    if (!contest.outFor[i].empty()) {
      cells.push_back("out: " + shown(contest.outFor[i].c_str(), 400));
    } else {
      const auto more = contest.photos.empty() ? pointCells(contest, i, explanation.records[i])
                                               : mpoCells(contest.photos[i], explanation.records[i]);
      cells.insert(cells.end(), more.begin(), more.end());
    }
    table.addRow(std::move(cells));
  }
  steps.add(table.text());
  if (contest.winner < 0) return steps.row("winner", "none: " + contest.lead);
  const char* format = explanation.format();
  steps.row("winner", resText(contest.winner) +
                          (format == nullptr ? ", with no format" : std::string(", as ") + format));
  steps.row("lead", contest.lead);
}

void showAnswer(Steps& steps, const Verdict& verdict, bool byTable) {
  if (const TarqResourceInfo* resource = verdict.resource()) {
    steps.row("came back", std::string("MIME type ") + shown(resource->mimeType) + ", content features " +
                               shown(resource->additionalInfo));
    if (byTable)
      steps.row("looked up", shown(formatKeyWords(resource->mimeType, resource->additionalInfo).c_str()));
    return;
  }
  steps.row("came back", describe(*verdict.code));
  if (!verdict.answer) return;
  const VondHspDlnaResponse& response = verdict.answer->response;
  if (verdict.answer->clientError != 0)
    return steps.row("once more", "no answer (client error " + numberText(verdict.answer->clientError) + ")");
  const auto orDash = [](const char* text) { return text == nullptr ? std::string("-") : shown(text); };
  steps.row("once more", "status " + numberText(response.GetStatusCode()) + ", content type " +
                             orDash(response.GetContentType()) + ", content features " +
                             orDash(response.GetContentFeatures()));
  if (byTable && verdict.code == kNothingPlayable)
    steps.row("looked up",
              shown(formatKeyWords(response.GetContentType(), response.GetContentFeatures()).c_str()));
}

void showOutcomes(Steps& steps, const Explanation& explanation) {
  bool first = true;
  for (const ProbeOutcome& outcome : probeOutcomes()) {
    std::string answer = outcome.answer;
    answer.resize(26, ' ');
    std::string words = numberText(outcome.code) + ": " + describe(outcome.code);
    if (outcome.code == kAccepted)
      words += explanation.winner() < 0
                   ? " if the table knows the answer, else " + numberText(kNothingPlayable)
                   : ", with the MIME type and content features of the answer";
    steps.row(first ? "answers" : "", answer + words);
    first = false;
  }
}

void showProbe(Steps& steps, const Explanation& explanation) {
  if (!explanation.probe) {
    return steps.begin(std::string("The server is not asked: ") + whyNotProbed(explanation));
  }
  const ProbeFacts& probe = *explanation.probe;
  steps.begin("The server has the last word");
  steps.row("request", "HEAD " + shown(probe.url));
  if (!probe.isHttp) return steps.row("", "not sent: no http:// URI");
  const char* mode = transferModeWord(probe.transferMode);
  steps.row("headers", std::string("getcontentFeatures.dlna.org: 1") +
                           (mode == nullptr ? "" : std::string("; transferMode.dlna.org: ") + mode));
  const bool byTable = explanation.winner() < 0;
  if (byTable) {
    steps.row("looked up", "in the media profile table (tarq-dmr sink --region " +
                               numberText(explanation.region) + "): the first profile");
    steps.row("", "name in the answer's content features or, without any, its content type");
  }
  if (explanation.verdict.code) {
    showAnswer(steps, explanation.verdict, byTable);
  } else {
    showOutcomes(steps, explanation);
  }
}

std::string chosenText(int resIndex, const char* format) {
  return (resIndex < 0 ? std::string("no res") : resText(resIndex)) + ", " +
         (format == nullptr ? "no format" : std::string("format ") + format);
}

std::string verdictText(const Explanation& explanation) {
  const Verdict& verdict = explanation.verdict;
  if (!verdict.code) {
    return "open, it hangs on the server's answer (--probe asks it): " +
           (explanation.winner() < 0
                ? std::string("no res plays, so the answer alone decides")
                : chosenText(explanation.winner(), explanation.format()) + " if it confirms");
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
