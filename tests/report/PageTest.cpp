// The pages in a real browser: the report of explain, and the renderer's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "Browser.h"
#include "ControlPoint.h"
#include "ScriptedLibrary.h"
#include "TestRows.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using testing::IsEmpty;

const std::string kHostile = "</script><script>hacked=1</script><img src=x onerror='hacked=1'>\"&amp;";

std::string fileText(const fs::path& file) {
  std::stringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

// Every example of the documentation in two regions, eight times, and an item with a hostile title.
std::string batchLines() {
  std::string lines;
  const auto add = [&](const std::string& uri, const std::string& metadata, int region) {
    lines += Json{{"uri", uri}, {"metadata", metadata}, {"region", region}}.dump() + "\n";
  };
  for (int i = 0; i < 16; ++i) {
    for (const auto& entry : fs::directory_iterator(TARQ_SOURCES "/docs/examples")) {
      const std::string host = i < 4 ? "media.example" : "192.168.0.7";
      if (entry.path().extension() == ".xml") add("http://" + host + "/item", fileText(entry.path()), i % 2);
    }
  }
  add("http://192.168.0.7/" + kHostile,
      "<DIDL-Lite xmlns:dc='d'><item><dc:title>" + escaped(kHostile) +
          "</dc:title><res "
          "protocolInfo='http-get:*:audio/mpeg:*'>http://192.168.0.7/a.mp3</res></item></DIDL-Lite>",
      1);
  return lines;
}

// The report of a batch, and the lines that the batch printed.
struct Report {
  std::string url;
  std::vector<Json> lines;

  static const Report& shared() {
    static const Report report =
        make(fs::temp_directory_path() / ("tarq-test-" + std::to_string(::getpid()) + ".html"));
    return report;
  }

 private:
  static Report make(const fs::path& file) {
    const Outcome outcome = runProgram({"explain", "--batch", "-", "--html", file}, batchLines());
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    Report report{"file://" + file.string(), {}};
    for (const std::string& line : linesOf(outcome.out)) report.lines.push_back(Json::parse(line));
    return report;
  }
};

class Pages : public testing::Environment {
  void SetUp() override {
    if (!Browser::isInstalled()) GTEST_SKIP() << "no browser is installed: chromium and chromium-driver";
  }
  void TearDown() override {
    if (Browser::isInstalled()) fs::remove(Report::shared().url.substr(7));
  }
};
const auto* const kPages = testing::AddGlobalTestEnvironment(new Pages);

// The rows of all pages of the report's list: title, region, state.
constexpr const char* kRows = R"(
  const rows = [];
  for (;;) {
    for (const row of document.querySelectorAll("#table tbody tr")) {
      const cell = (key) => row.cells[[...document.querySelectorAll("#table th")].findIndex((th) => th.dataset.key === key)];
      rows.push([cell("title").textContent, Number(cell("region").textContent), cell("state").firstChild.className.slice(6)]);
    }
    if (document.getElementById("next").disabled) return rows;
    document.getElementById("next").click();
  })";

Json rowOf(const Json& line) {
  const Json& code = line["verdict"]["code"];
  const char* state = code.is_null() ? "depends" : code == 0 ? "plays" : "refused";
  const Json& title = line["metadata"]["title"];
  return {title.is_null() ? line["uri"]["text"] : title, line["region"], state};
}

Json rowsOf(const std::vector<Json>& lines) {
  Json rows = Json::array();
  for (const Json& line : lines) rows.push_back(rowOf(line));
  return rows;
}

TEST(Report, ListsWhatTheBatchPrinted) {
  Browser& browser = Browser::shared();
  browser.open(Report::shared().url);
  EXPECT_EQ(browser.run(kRows), rowsOf(Report::shared().lines));
  EXPECT_EQ(browser.run("return typeof hacked"), "undefined");
  EXPECT_THAT(browser.messages(), IsEmpty());
}

TEST(Report, ListsWhatTheSurveyKept) {
  const ScriptedLibrary library([](const BrowseRequest& request) { return honestPage(request, 120); });
  const fs::path page =
      fs::temp_directory_path() / ("tarq-test-survey-" + std::to_string(::getpid()) + ".html");
  const MemoryFile ndjson;
  const Outcome outcome =
      runProgram({"survey", library.url(), "--regions", "0,1", "--ndjson", ndjson.path(), "--html", page});
  EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
  Json expected = Json::array();
  for (const std::string& text : linesOf(ndjson.content())) {
    const Json line = Json::parse(text);
    EXPECT_TRUE(line["result"]["code"].is_null());
    expected.push_back({line["title"], line["region"], "depends"});
  }
  EXPECT_EQ(expected.size(), 240U);
  Browser& browser = Browser::shared();
  browser.open("file://" + page.string());
  EXPECT_EQ(browser.run("return document.querySelector('h1').textContent"), "Scripted");
  EXPECT_EQ(browser.run(kRows), expected);
  EXPECT_THAT(browser.messages(), IsEmpty());
  fs::remove(page);
}

const struct {
  const char* name;
  const char* control;
  const char* value;
  bool (*matches)(const Json& row);
} kFilters[] = {
    {"Result", "state", "plays", [](const Json& row) { return row[2] == "plays"; }},
    {"Region", "region", "1", [](const Json& row) { return row[1] == 1; }},
    {"WordsOfATitle", "search", "IMG </scr", [](const Json& row) { return row[0] == kHostile; }},
    {"NothingFound", "search", "no such item", [](const Json&) { return false; }},
};

TEST_ROWS(Report, Filters, kFilters) {
  Browser& browser = Browser::shared();
  browser.open(Report::shared().url);
  browser.run(std::string("const control = document.getElementById('") + row.control +
              "'); control.value = '" + row.value +
              "'; control.dispatchEvent(new Event(control.tagName === 'SELECT' ? 'change' : 'input'))");
  Json expected = Json::array();
  for (const Json& each : rowsOf(Report::shared().lines)) {
    if (row.matches(each)) expected.push_back(each);
  }
  EXPECT_EQ(browser.run(kRows), expected);
}

TEST(Report, SortsByKeyboard) {
  Browser& browser = Browser::shared();
  browser.open(Report::shared().url);
  browser.run("document.querySelector('[data-key=region] button').focus()");
  std::vector<Json> rows = rowsOf(Report::shared().lines);
  const auto region = [](const Json& row) { return row[1].get<int>(); };
  for (const std::string order : {"ascending", "descending"}) {
    browser.press("\uE007");
    order == "ascending" ? std::ranges::stable_sort(rows, std::less(), region)
                         : std::ranges::stable_sort(rows, std::greater(), region);
    EXPECT_EQ(browser.run("return document.querySelector('[data-key=region]').ariaSort"), order);
    EXPECT_EQ(browser.run(kRows), Json(rows));
    browser.run("document.querySelector('[data-key=region] button').focus()");
  }
}

// The totals and the widths of the bars in percent, by element.
TEST(Report, DrawsThePointsOfAContest) {
  Browser& browser = Browser::shared();
  browser.open(Report::shared().url);
  browser.run(
      "document.getElementById('search').value = 'big-picture-4000';"
      "document.getElementById('search').dispatchEvent(new Event('input'));"
      "document.querySelector('.open').focus()");
  browser.press("\uE007");
  const Json drawn = browser.run(R"(
    return [...document.querySelectorAll(".contest tbody tr")].filter((row) => row.querySelector("svg")).map((row) =>
      [Number(row.querySelector(".number").textContent),
       Math.round([...row.querySelectorAll("rect")].reduce((all, bar) => all + parseFloat(bar.getAttribute("width")), 0))]))");
  Json expected = Json::array();
  const auto line = std::ranges::find_if(Report::shared().lines, [](const Json& each) {
    return each["metadata"]["title"] == "big-picture-4000x3000";
  });
  for (const Json& candidate : (*line)["contest"]["candidates"]) {
    const int total = candidate["primary"]["total"];
    if (candidate["eligible"]) expected.push_back({total, (100 * total + 800) / 1600});
  }
  EXPECT_EQ(drawn, expected);
}

// What is hard to read or to operate, one string each.
constexpr const char* kComplaints = R"(
  document.querySelectorAll(".open").forEach((button, i) => i < 40 && button.click());
  const complaints = [];
  const complain = (what, element) => complaints.push(`${what}: ${element.outerHTML.slice(0, 100)}`);
  const rgba = (color) => color.match(/[\d.]+/g).map(Number);
  const luminance = (color) => {
    const [r, g, b] = rgba(color).map((c) => c / 255).map((c) => (c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4));
    return 0.2126 * r + 0.7152 * g + 0.0722 * b;
  };
  const background = (element) => {
    const color = getComputedStyle(element).backgroundColor;
    return (rgba(color)[3] ?? 1) === 1 || !element.parentElement ? color : background(element.parentElement);
  };
  for (const element of document.body.querySelectorAll("*")) {
    if (!element.checkVisibility()) continue;
    const [dark, light] = [luminance(getComputedStyle(element).color), luminance(background(element))].sort((a, b) => a - b);
    const hasText = [...element.childNodes].some((node) => node.nodeType === 3 && node.data.trim());
    if (hasText && (light + 0.05) / (dark + 0.05) < 4.5) complain("contrast", element);
    if (element.matches("input, select") && !element.labels.length) complain("no label", element);
    if (element.matches("button") && !element.textContent.trim()) complain("no name", element);
    if (element.matches("th") && !element.scope) complain("no scope", element);
    if (element.onclick || element.tabIndex > 0) complain("not for the keyboard", element);
  }
  if (document.documentElement.scrollWidth > innerWidth) complain("wider than the window", document.body);
  if (matchMedia('(prefers-color-scheme: dark)').matches !== luminance(background(document.body)) < 0.2)
    complain("not in the colors that are wanted", document.body);
return complaints;)";

const struct {
  const char* name;
  bool report;
  int width;
  bool dark;
} kLooks[] = {{"ReportLight", true, 1200, false},  {"ReportDark", true, 1200, true},
              {"ReportOnPhone", true, 390, true},  {"RendererLight", false, 1200, false},
              {"RendererDark", false, 1200, true}, {"RendererOnPhone", false, 390, false}};

const std::string kRendererPage =
    std::string("http://") + kRendererAddress + ":" + std::to_string(kDefaultPort) + "/page";

TEST_ROWS(Page, CanBeReadAndOperated, kLooks) {
  Browser& browser = Browser::shared();
  if (!row.report) setSource(MediaServer::url("/a"), musicDidl(MediaServer::url("/a")));
  browser.open(row.report ? Report::shared().url : kRendererPage, row.width, row.dark);
  EXPECT_TRUE(
      becomesTrue([&] { return browser.run("return document.querySelector('.open') !== null") == true; }));
  EXPECT_THAT(browser.run(kComplaints), IsEmpty());
  EXPECT_THAT(browser.messages(), IsEmpty());
}

TEST(RendererPage, ShowsLiveWhatIsAskedFor) {
  Browser& browser = Browser::shared();
  browser.open(kRendererPage);
  std::string didl = musicDidl(MediaServer::url("/a"));
  didl.replace(didl.find("<res"), 0, "<dc:title xmlns:dc='d'>" + escaped(kHostile) + "</dc:title>");
  EXPECT_EQ(setSource(MediaServer::url("/a"), didl), 0);
  EXPECT_EQ(setSource(MediaServer::url("/status503"), musicDidl(MediaServer::url("/status503"))), 715);
  for (int i = 0; i < 60; ++i) setVolume(i);
  EXPECT_TRUE(becomesTrue([&] {
    return browser.run("return document.getElementById('facts').textContent")
        .get<std::string>()
        .ends_with("Volume59");
  }));
  EXPECT_EQ(browser.run("return document.getElementById('title').textContent"), kHostile);
  EXPECT_EQ(browser.run("return typeof hacked"), "undefined");
  const Json data = Json::parse(HttpRequest{"GET", "/page/now"}.send().body);
  EXPECT_EQ(data["requests"].size(), 50U);
  EXPECT_EQ(browser.run("return document.querySelectorAll('#requests tbody tr').length"), 50);
  EXPECT_EQ(data["now"]["choice"]["item"]["title"], kHostile);
  EXPECT_THAT(browser.messages(), IsEmpty());
}

}  // namespace
