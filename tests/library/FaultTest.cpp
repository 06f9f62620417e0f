// Surveys of servers that do things wrong: what is there is taken, and what is wrong is said.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <future>

#include "Network.h"
#include "Program.h"
#include "ScriptedLibrary.h"
#include "TestRows.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Survey {
  Outcome outcome;  // with --json
  std::vector<std::string> lines;

  // The ids of the items, in their order; of many the first and the last.
  std::string ids() const {
    std::string all;
    for (const std::string& line : lines) all += (all.empty() ? "" : " ") + between(line, "\"id\":\"", "\"");
    if (lines.size() <= 5) return all;
    return all.substr(0, all.find(' ')) + ".." + all.substr(all.rfind(' ') + 1) + " " +
           std::to_string(lines.size());
  }
  std::string problem() const { return between(outcome.out, "\"problems\":[{\"message\":\"", "\""); }
};

Survey survey(const ScriptedLibrary& library) {
  const MemoryFile ndjson;
  Survey survey{runProgram({"survey", library.url(), "--json", "--ndjson", ndjson.path()}), {}};
  survey.lines = linesOf(ndjson.content());
  return survey;
}

std::string onePage(const BrowseRequest& request, const std::string& didl, int count) {
  return request.start == 0 ? browseAnswer(didl, count, count) : browseAnswer("", 0, count);
}

const struct {
  const char* name;
  std::string (*answer)(const BrowseRequest&);
  const char* ids;
  const char* problem;
} kFaults[] = {
    {"None", [](const BrowseRequest& r) { return honestPage(r, 450); }, "0..449 450", ""},
    {"Empty", [](const BrowseRequest&) { return browseAnswer("", 0, 0); }, "", ""},
    {"TotalTooSmall",
     [](const BrowseRequest& r) {
       const int end = std::min(450, r.start + 100);
       return browseAnswer(Objects().items(r.start, end), 100);
     },
     "0..449 450", "it has another number of objects than TotalMatches says"},
    {"TotalTooLarge",
     [](const BrowseRequest& r) {
       return browseAnswer(Objects().items(r.start, std::min(3, r.start + 200)), 9);
     },
     "0 1 2", "it has another number of objects than TotalMatches says"},
    {"TotalNotKnown",
     [](const BrowseRequest& r) {
       return browseAnswer(Objects().items(r.start, std::min(450, r.start + 50)), 0);
     },
     "0..449 450", ""},
    {"NumberReturnedTooLarge",
     [](const BrowseRequest& r) {
       const Objects objects = Objects().items(r.start, std::min(3, r.start + 2));
       return browseAnswer(rooted(objects.didl), objects.count == 0 ? 0 : 200, 3);
     },
     "0 1 2", "it sends another number of objects than NumberReturned says"},
    {"ErrorPastTheEnd",
     [](const BrowseRequest& r) { return r.start < 3 ? honestPage(r, 3) : upnpError(402); }, "0 1 2", ""},
    {"ErrorOnce", [](const BrowseRequest& r) { return r.times == 1 ? upnpError(720) : honestPage(r, 3); },
     "0 1 2", ""},
    {"ErrorInTheMiddle",
     [](const BrowseRequest& r) { return r.start == 200 ? upnpError(501) : honestPage(r, 450); },
     "0..449 250", "it cannot be read: UPnP error 501: no"},
    {"ErrorOfOneContainer",
     [](const BrowseRequest& r) {
       if (r.container == "A") return upnpError(701);
       return onePage(r,
                      rooted(r.container == "0" ? Objects().container("A").container("B").didl
                                                : Objects().item("b").didl),
                      r.container == "0" ? 2 : 1);
     },
     "b", "it cannot be read: UPnP error 701: no"},
    {"SamePageAgain", [](const BrowseRequest&) { return browseAnswer(Objects().items(0, 3), 9); }, "0 1 2",
     "it repeats its objects; they are taken once"},
    {"ContainerInItself",
     [](const BrowseRequest& r) {
       return onePage(r, rooted(Objects().container("0").container("A").item("i" + r.container).didl), 3);
     },
     "i0 iA", ""},
    {"DeeperAndDeeper",
     [](const BrowseRequest& r) {
       return onePage(r, rooted(Objects().container(r.container + "0").didl), 1);
     },
     "", "it is nested 100 deep; what it holds is left out"},
    {"ChangesMeanwhile",
     [](const BrowseRequest& r) {
       return browseAnswer(rooted(Objects().items(r.start, std::min(3, r.start + 2)).didl),
                           std::max(0, std::min(2, 3 - r.start)), 3, r.start);
     },
     "0 1 2", "it changed while it was read"},
    {"BreaksOff",
     [](const BrowseRequest& r) {
       const std::string didl = rooted(Objects().items(0, 3).didl);
       return onePage(r, didl.substr(0, didl.size() - 40), 3);
     },
     "0 1", "its answer is not well-formed"},
    {"Latin1",
     [](const BrowseRequest& r) { return onePage(r, rooted(Objects().item("x").didl + "\xE9"), 1); }, "x",
     "it sends bytes that are not valid UTF-8"},
    {"NotDidl", [](const BrowseRequest& r) { return onePage(r, "<html/>", 1); }, "", "it is an HTML page"},
    {"NotSoap", [](const BrowseRequest&) { return httpAnswer("hello"); }, "",
     "it cannot be read: its answer is not well-formed: "},
    {"TooLarge",
     [](const BrowseRequest& r) {
       return r.count > 50 ? httpAnswer(std::string(9 << 20, ' ')) : honestPage(r, 60);
     },
     "0..59 60", ""},
    {"EndlessAnswer", [](const BrowseRequest&) { return httpAnswer(std::string(9 << 20, ' ')); }, "",
     "it cannot be read: its answer is larger than 8 MiB"},
    {"NoAnswer", [](const BrowseRequest&) { return std::string(); }, "",
     "it cannot be read: Server returned nothing (no headers, no data)"},
};

TEST_ROWS(Survey, TakesWhatIsThere, kFaults) {
  const ScriptedLibrary library(row.answer);
  const Survey result = survey(library);
  EXPECT_EQ(result.ids(), row.ids);
  EXPECT_THAT(result.problem(), StartsWith(row.problem));
  EXPECT_EQ(result.problem().empty(), *row.problem == '\0');
  const bool readNothing = result.lines.empty() && *row.problem != '\0';
  EXPECT_EQ(result.outcome.exitCode, readNothing ? 1 : 0) << result.outcome.err;
}

TEST(Survey, EndsAContainerWithoutEndWaitsForAll) {
  const ScriptedLibrary library(
      [](const BrowseRequest& r) { return browseAnswer(Objects().items(r.start, r.start + 2000), 0); });
  const Survey result = survey(library);
  EXPECT_EQ(result.ids(), "0..249999 250000");
  EXPECT_EQ(result.problem(), "it has more than 250000 objects; the rest is left out");
}

const OutcomeRow kDocuments[] = {
    {"AsWritten",
     "<DIDL-Lite a='1'  b=\"2\" ><!-- < --><item id = '1'>\n<x/>&amp;<![CDATA[<item>]]></item >\n</DIDL-Lite "
     ">",
     "<DIDL-Lite a='1'  b=\"2\" ><item id = '1'>\n<x/>&amp;<![CDATA[<item>]]></item ></DIDL-Lite >"},
    {"PrefixOfTheRoot", "<?xml version='1.0'?><d:DIDL-Lite xmlns:d='u'><d:item id='1'/><desc/></d:DIDL-Lite>",
     "<d:DIDL-Lite xmlns:d='u'><d:item id='1'/></d:DIDL-Lite>"},
};

TEST_ROWS(Survey, KeepsTheBytesOfAnItem, kDocuments) {
  const ScriptedLibrary library([&](const BrowseRequest& r) { return onePage(r, row.input, 1); });
  const Survey result = survey(library);
  ASSERT_EQ(result.lines.size(), 1U);
  std::string metadata = between(result.lines[0], "\"metadata\":\"", "\",\"region\"");
  for (size_t at; (at = metadata.find("\\n")) != std::string::npos;) metadata.replace(at, 2, "\n");
  for (size_t at; (at = metadata.find("\\\"")) != std::string::npos;) metadata.replace(at, 2, "\"");
  EXPECT_EQ(metadata, row.outcome);
}

std::string fewItems(const BrowseRequest& request) {
  Objects objects;
  objects.item("known").item("new", "audio/mpeg:DLNA.ORG_PN=MP9").item("\x1B[31m", "text/plain:*");
  objects.item("later", "video/mpeg:DLNA.ORG_PN=MPEG_PS_NTSC");
  return onePage(request, rooted(objects.didl), objects.count);
}

constexpr const char* kCounts = R"(Scripted (Test): 4 items in 1 container

All items
  region 0  region 1  state
         4         4  depends on the server

By kind and format
  region 0  region 1  state                  kind     format
         1         1  depends on the server  music    MP3
         1         1  depends on the server  music    audio/mpeg
         1         1  depends on the server  unknown  text/plain
         -         1  depends on the server  video    MPEG2_PS
         1         -  depends on the server  video    video/mpeg

Why no res is played
  region 0  region 1  state                  reason                                            for example
         1         1  depends on the server  no res is photo, music or video                   \x1b[31m: no res is photo, music or video
         1         1  depends on the server  unknown profile name, no help from the MIME type  new: res 0 would be MP3 without its profile name
         1         -  depends on the server  profile name not played in this region            later: res 0 would be MPEG2_PS in region 1

What one change would let play
  region 0  region 1  would play                which is  for example
         1         1  without its profile name  MP9       new: res 0 would be MP3 without its profile name
         1         -  in region 1               -         later: res 0 would be MPEG2_PS in region 1

Not the same in all regions
  items  region 0               region 1                         for example
      1  depends on the server  depends on the server, MPEG2_PS  later: res 0 would be MPEG2_PS in region 1
)";

TEST(Survey, CountsByRegion) {
  const ScriptedLibrary library(fewItems);
  const Outcome outcome = runProgram({"survey", library.url(), "--regions", "0,1"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.out, kCounts);
}

const struct {
  const char* name;
  const char* controlUrl;
  const char* options;
  const char* message;
} kRefused[] = {
    {"OtherHost", "http://127.0.0.2:9/control", "",
     "has its ContentDirectory on another host, which is not asked"},
    {"OtherScheme", "file:///etc/passwd", "", "has its ContentDirectory on another host, which is not asked"},
    {"NoFile", "/control", "--ndjson /nowhere/file", "cannot write /nowhere/file: No such file or directory"},
    {"RegionAndRegions", "/control", "--region 1 --regions 0", "--region excludes --regions"},
    {"NotARegion", "/control", "--regions 0,x", "--regions: not a 32-bit integer: x"},
};

TEST_ROWS(Survey, RefusesInOneLine, kRefused) {
  const ScriptedLibrary library(fewItems, row.controlUrl);
  std::vector<std::string> words = wordsOf(row.options);
  words.insert(words.begin(), {"survey", library.url()});
  const Outcome outcome = runProgram(words);
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_THAT(outcome.err, HasSubstr(row.message));
  EXPECT_THAT(linesOf(outcome.err), testing::SizeIs(1));
}

TEST(Survey, ShowsWhatWasDoneWhenInterrupted) {
  std::promise<void> hangs;
  std::promise<void> ended;
  const ScriptedLibrary library([&, future = ended.get_future().share()](const BrowseRequest& request) {
    if (request.start == 0) return honestPage(request, 450);
    hangs.set_value();
    future.wait();
    return std::string();
  });
  const MemoryFile in, out, err, ndjson;
  const pid_t child = startProgram({"survey", library.url(), "--json", "--ndjson", ndjson.path()},
                                   in.descriptor(), out.descriptor(), err.descriptor());
  hangs.get_future().wait();
  EXPECT_TRUE(becomesTrue([&] { return linesOf(ndjson.content()).size() > 100; }));
  ::kill(child, SIGINT);
  EXPECT_EQ(waitFor(child), -SIGINT);
  ended.set_value();
  EXPECT_THAT(out.content(), HasSubstr("\"end\":\"interrupted\",\"items\":"));
  EXPECT_THAT(ndjson.content(), testing::EndsWith("}\n"));
}

}  // namespace
