#include "ResText.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "ContestWords.h"
#include "ExplainWords.h"
#include "TextTable.h"

namespace {

using Cells = std::vector<std::string>;

std::string labelled(const char* label, const VondString& name) {
  return name.c_str() == nullptr ? "" : label + shown(name.c_str(), 40);
}

std::string profileNames(const TarqDlnaResMetadata& record) {
  std::string all;
  for (const std::string& name : {labelled("", record.dlnaPn), labelled("ORSA.COM_PN=", record.orsaPn),
                                  labelled("ARIB.OR.JP_PN=", record.aribPn)}) {
    if (!name.empty()) all += (all.empty() ? "" : ", ") + name;
  }
  return all;
}

std::string pictures(const TarqDlnaResMetadata& record) {
  return record.mpfEntries == 0 ? "" : std::to_string(record.mpfEntries);
}

Cells resCells(const TarqDlnaResMetadata& record) {
  if (const char* skipped = skipWords(record.skip)) return {std::string("skipped: ") + skipped};
  const char* stage = stageWord(record.categoryBy);
  return {categoryWord(record.category),
          stage == nullptr ? "" : stage,
          shown(record.mimeType.c_str(), 40),
          shown(record.extension.c_str(), 20),
          profileNames(record),
          record.notConverted ? "no" : "yes",
          shown(record.resolution, 20),
          pictures(record)};
}

std::string orNone(const char* string, const char* name) {
  return string == nullptr ? std::string("no ") + name : shown(string);
}

// What the table has no room for.
void showDetails(Steps& steps, const std::string& name, const ResFacts& res,
                 const TarqDlnaResMetadata& record) {
  steps.row(name, orNone(res.url, "URL"));
  steps.row("", orNone(res.protocolInfo, "protocolInfo"));
  if (record.mimeTypeWrapped) {
    steps.row("", "its MIME type is the CONTENTFORMAT parameter of the third field");
  }
  for (const std::string& note : res.notes) steps.row("", shown(note.c_str()));
}

std::string requestedWords(const std::vector<ResFacts>& res) {
  std::string names;
  for (size_t i = 0; i < res.size(); ++i) {
    if (res[i].requested) names += (names.empty() ? "" : ", ") + resText(static_cast<int>(i));
  }
  return names.empty() ? "the URI is not the URL of any res" : "the URI is the URL of " + names;
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

Cells pointCells(const TarqDlnaResMetadata& record, const std::vector<bool>& matters) {
  const ResPoints& points = record.score.counted();
  Cells cells = {shown(record.format)};
  for (size_t i = 0; i < matters.size(); ++i) {
    cells.push_back(matters[i] ? std::to_string(points.*pointCauses()[i].points) : "");
  }
  const bool secondary = &points == &record.score.secondary;
  const std::string total = std::to_string(points.total());
  cells.insert(cells.end(), {secondary ? "" : total, secondary ? total : ""});
  cells.push_back(ruleWords(record.score.rule) + std::string(points.total() > 0 ? "" : "; not above 0"));
  return cells;
}

Cells mpoCells(const TarqDlnaResMetadata& record) {
  const MpoRank& mpo = record.score.mpo;
  const std::string distance = (mpo.overArea > 0 ? "+" : "") + std::to_string(mpo.overArea);
  return {std::to_string(mpo.rank), std::to_string(record.mpfEntries), record.notConverted ? "no" : "yes",
          mpo.fullHd ? "full HD" : distance};
}

Cells headingsOf(ResContestKind contest) {
  if (contest == ResContestKind::kMpo)
    return {">res", ">rank", ">pictures", "converted", ">pixels from full HD"};
  Cells headings = {">res", "played as"};
  for (const PointCause& cause : pointCauses()) headings.push_back(std::string(">") + cause.name);
  const char* total = wordsOf(contest).twoScores ? ">primary" : ">total";
  headings.insert(headings.end(), {total, ">secondary", "decided by"});
  return headings;
}

Cells candidateCells(const Explanation& explanation, size_t index, const std::vector<bool>& matters) {
  const TarqDlnaResMetadata& record = explanation.records[index];
  if (isOut(record.score.rule)) return {"out: " + exclusionText(explanation, index)};
  return explanation.choice.contest == ResContestKind::kMpo ? mpoCells(record) : pointCells(record, matters);
}

void showCandidates(Steps& steps, const Explanation& explanation) {
  const std::vector<bool> matters = causesThatMatter(explanation);
  TextTable table(headingsOf(explanation.choice.contest));
  for (size_t i = 0; i < explanation.records.size(); ++i) {
    const bool won = static_cast<int>(i) == explanation.choice.winner;
    Cells cells = candidateCells(explanation, i, matters);
    cells.insert(cells.begin(), (won ? "> " : "") + std::to_string(i));
    table.addRow(std::move(cells));
  }
  steps.add(table.text());
}

std::string kindWords(const ResChoice& choice) {
  return std::string("is ") + categoryNoun(choice.kind) + ": " +
         (choice.kind == kCategoryPhoto ? "no res is music or video"
                                        : resText(choice.kindFrom) + " is the last that is music or video");
}

void showWinner(Steps& steps, const Explanation& explanation) {
  const std::string lead = leadWords(explanation);
  if (explanation.choice.winner < 0) return steps.row("winner", "none: " + lead);
  const char* format = explanation.format();
  steps.row("winner", resText(explanation.choice.winner) +
                          (format == nullptr ? ", without a format" : std::string(", as ") + format));
  steps.row("lead", lead);
}

}  // namespace

void showRes(Steps& steps, const Explanation& explanation) {
  steps.begin("Each res element");
  TextTable table({">res", "is", "decided by", "MIME type", "extension", "profile name", "converted",
                   "resolution", ">pictures"});
  for (size_t i = 0; i < explanation.records.size(); ++i) {
    Cells cells = resCells(explanation.records[i]);
    cells.insert(cells.begin(), std::to_string(i));
    table.addRow(std::move(cells));
  }
  steps.add(table.text());
  for (size_t i = 0; i < explanation.res.size(); ++i) {
    showDetails(steps, resText(static_cast<int>(i)), explanation.res[i], explanation.records[i]);
  }
  steps.row("requested", requestedWords(explanation.res));
}

void showContest(Steps& steps, const Explanation& explanation) {
  const ResChoice& choice = explanation.choice;
  if (!choice.contestHeld()) return steps.begin("No contest: no res is photo, music or video");
  steps.begin(std::string("The ") + wordsOf(choice.contest).name + " contest");
  steps.row("the object", kindWords(choice));
  steps.row("so", contestReason(explanation));
  steps.row("won by", wordsOf(choice.contest).howWon);
  showCandidates(steps, explanation);
  showWinner(steps, explanation);
}
