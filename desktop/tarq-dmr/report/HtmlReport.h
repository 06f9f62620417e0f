#ifndef TARQ_DMR_HTML_REPORT_H_
#define TARQ_DMR_HTML_REPORT_H_

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct ReportFact {
  std::string name;
  std::string value;
};

// A chart of horizontal bars.
struct ReportBar {
  std::string label;
  int64_t count;
  std::string words;  // what else there is to say of it; may be empty
};
struct ReportChart {
  std::string title;
  std::vector<ReportBar> bars;
};

// What a report says above its items. It counts nothing itself.
struct ReportSummary {
  std::string title;
  std::string subtitle;
  std::vector<ReportFact> facts;
  std::vector<ReportChart> charts;  // those without bars are left out
  std::string text;                 // as it is, in lines; may be empty
};

// A page of HTML about any number of items, in one file that needs nothing else. Strings may be hostile: no script or
// markup of theirs has an effect. Items go to the file as they come.
// Threads: one at a time.
// Errors: CommandError when the file cannot be written.
class HtmlReport {
 public:
  explicit HtmlReport(const std::string& path);

  void add(std::string_view item);  // as itemJson of an explanation words it
  void end(const ReportSummary& summary);

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  void put(std::string_view text);
  [[noreturn]] void fail() const;  // the reason is in errno

  const std::string path_;
  std::unique_ptr<std::FILE, Close> file_;
  bool hasItems_ = false;
};

#endif  // TARQ_DMR_HTML_REPORT_H_
