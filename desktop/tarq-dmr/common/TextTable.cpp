#include "TextTable.h"

#include <algorithm>

namespace {

size_t widthOf(const std::string& text) {
  return static_cast<size_t>(
      std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace

TextTable::TextTable(std::vector<std::string> headings) {
  for (std::string& heading : headings) {
    rightAligned_.push_back(heading.starts_with('>'));
    if (rightAligned_.back()) heading.erase(0, 1);
  }
  rows_.push_back(std::move(headings));
}

void TextTable::addRow(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

std::vector<size_t> TextTable::widths() const {
  std::vector<size_t> widths(rightAligned_.size(), 0);
  for (auto row = rows_.begin() + 1; row != rows_.end(); ++row) {
    for (size_t column = 0; column < row->size(); ++column) {
      const bool runsOn = column + 1 == row->size() && row->size() < widths.size();
      const size_t width = runsOn ? 1 : std::max<size_t>(widthOf((*row)[column]), 1);
      if (!(*row)[column].empty()) widths[column] = std::max(widths[column], width);
    }
  }
  for (size_t column = 0; column < widths.size(); ++column) {
    if (widths[column] != 0) widths[column] = std::max(widths[column], widthOf(rows_[0][column]));
  }
  return widths;
}

void TextTable::appendLine(std::string& to, const Row& row, const std::vector<size_t>& widths) const {
  std::string line;
  for (size_t column = 0; column < row.size(); ++column) {
    if (widths[column] == 0) continue;
    const std::string cell = row[column].empty() ? "-" : row[column];
    const std::string padding(widths[column] - std::min(widths[column], widthOf(cell)), ' ');
    line += "  " + (rightAligned_[column] ? padding + cell : cell + padding);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  to += line + '\n';
}

std::string TextTable::text() const {
  const std::vector<size_t> columns = widths();
  std::string text;
  for (const Row& row : rows_) appendLine(text, row, columns);
  return text;
}
