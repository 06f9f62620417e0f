#ifndef STRING_ROWS_H_
#define STRING_ROWS_H_

#include <vector>

#include "TestRows.h"

// A row for TEST_ROWS that is named after its input.
struct StringRow {
  std::string name, input, outcome;
};

// Each row reads "input => outcome".
inline std::vector<StringRow> stringRows(std::initializer_list<std::string> rows) {
  std::vector<StringRow> named;
  for (const std::string& row : rows) {
    const size_t arrow = row.find(" => ");
    std::string name = std::to_string(named.size()) + '_' + row.substr(0, std::min<size_t>(arrow, 30));
    for (char& c : name) c = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'z') ? c : '_';
    named.push_back({name, row.substr(0, arrow), row.substr(arrow + 4)});
  }
  return named;
}

#endif  // STRING_ROWS_H_
