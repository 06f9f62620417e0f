#include "HtmlReport.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "CommandError.h"
#include "ReportPage.h"
#include "TextOutput.h"

namespace {

// The page in pieces, cut where something is put in. Items come first: they do not wait for the counts.
const std::string_view kPage = kReportPage;
constexpr std::string_view kItems = "<!--items-->";
constexpr std::string_view kSummary = "<!--summary-->";
constexpr std::string_view kDetails = "<!--details-->";
const size_t kItemsAt = kPage.find(kItems);
const size_t kSummaryAt = kPage.find(kSummary, kItemsAt);
const size_t kDetailsAt = kPage.find(kDetails, kSummaryAt);

std::string html(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&')
      escaped += "&amp;";
    else if (c == '<')
      escaped += "&lt;";
    else if (c == '>')
      escaped += "&gt;";
    else
      escaped += c;
  }
  return escaped;
}

std::string element(std::string_view name, std::string_view attributes, const std::string& text) {
  if (text.empty()) return {};
  std::string all = "<" + std::string(name) + std::string(attributes) + ">" + html(printable(text));
  return all + "</" + std::string(name) + ">";
}

// "12,345"
std::string grouped(int64_t number) {
  std::string digits = std::to_string(number);
  for (size_t end = digits.size(); end > 3; end -= 3) digits.insert(end - 3, ",");
  return digits;
}

std::string barRow(const ReportBar& bar, int64_t most) {
  const auto percent = static_cast<double>(bar.count) * 100 / static_cast<double>(std::max<int64_t>(most, 1));
  return "<tr><th scope=\"row\">" + html(printable(bar.label)) +
         element("span", " class=\"words\"", bar.words) +
         "</th><td><svg width=\"100%\" height=\"14\" aria-hidden=\"true\"><rect width=\"" +
         std::to_string(percent) + "%\" height=\"14\"/></svg></td>" +
         element("td", " class=\"number\"", grouped(bar.count)) + "</tr>\n";
}

std::string chartHtml(const ReportChart& chart) {
  if (chart.bars.empty()) return {};
  const int64_t most = std::ranges::max_element(chart.bars, {}, &ReportBar::count)->count;
  std::string all = "<section>" + element("h2", "", chart.title) + "<table class=\"chart\">\n";
  for (const ReportBar& bar : chart.bars) all += barRow(bar, most);
  return all + "</table></section>\n";
}

std::string factsHtml(const std::vector<ReportFact>& facts) {
  if (facts.empty()) return {};
  std::string all = "<dl class=\"facts\">\n";
  for (const ReportFact& fact : facts) {
    all += "<div>" + element("dt", "", fact.name) + element("dd", "", fact.value) + "</div>\n";
  }
  return all + "</dl>\n";
}

}  // namespace

HtmlReport::HtmlReport(const std::string& path) : path_(path), file_(std::fopen(path.c_str(), "we")) {
  if (file_ == nullptr) fail();
  put(kPage.substr(0, kItemsAt));
}

// Inside a script element "<" could end it.
void HtmlReport::add(std::string_view item) {
  put(hasItems_ ? ",\n" : "\n");
  hasItems_ = true;
  for (size_t at; (at = item.find('<')) != item.npos; item.remove_prefix(at + 1)) {
    put(item.substr(0, at));
    put("\\u003c");
  }
  put(item);
}

void HtmlReport::end(const ReportSummary& summary) {
  const size_t afterItems = kItemsAt + kItems.size();
  put(kPage.substr(afterItems, kSummaryAt - afterItems));
  put("<header>" + element("h1", "", summary.title) + element("p", " class=\"soft\"", summary.subtitle) +
      factsHtml(summary.facts) + "</header>\n<div class=\"charts\">\n");
  for (const ReportChart& chart : summary.charts) put(chartHtml(chart));
  put("</div>\n");
  const size_t afterSummary = kSummaryAt + kSummary.size();
  put(kPage.substr(afterSummary, kDetailsAt - afterSummary));
  if (!summary.text.empty())
    put("<h2>Step by step</h2>\n<pre tabindex=\"0\">" + html(summary.text) + "</pre>\n");
  put(kPage.substr(kDetailsAt + kDetails.size()));
  if (std::fclose(file_.release()) != 0) fail();
}

void HtmlReport::put(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size()) fail();
}

void HtmlReport::fail() const { throw CommandError("cannot write " + path_ + ": " + std::strerror(errno)); }
