#ifndef TARQ_DMR_TEXT_TABLE_H_
#define TARQ_DMR_TEXT_TABLE_H_

#include <string>
#include <vector>

// Lines of cells under headings, in columns as wide as their widest cell. Texts are printable UTF-8.
class TextTable {
 public:
  // A heading that begins with ">" is right-aligned with its cells.
  explicit TextTable(std::vector<std::string> headings);

  // An empty cell shows as "-"; a column that is empty in all rows is left out. The last cell of a row with
  // fewer cells than columns may run on to the right.
  void addRow(std::vector<std::string> cells);
  std::string text() const;  // indented by two blanks; each line with its end

 private:
  using Row = std::vector<std::string>;

  std::vector<size_t> widths() const;  // 0: left out
  void appendLine(std::string& to, const Row& row, const std::vector<size_t>& widths) const;

  std::vector<Row> rows_;  // the headings first
  std::vector<bool> rightAligned_;
};

#endif  // TARQ_DMR_TEXT_TABLE_H_
