#ifndef TEST_ROWS_H_
#define TEST_ROWS_H_

#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <string>
#include <type_traits>
#include <utility>

// TEST_ROWS(Suite, Name, table) { ... } is one test for each row of a table, so that a failure names its row
// and a filter runs it alone: Suite.Name/rowName. The body sees its row as `row`. The table has static
// storage; the first member of its rows is `const char* name`, letters and digits, different in each.
#define TEST_ROWS(suite, test, table)                                         \
  static void suite##_##test(const RowOf<decltype(table)>&);                  \
  static const bool suite##_##test##_registered =                             \
      registerRows(#suite, #test, __FILE__, __LINE__, table, suite##_##test); \
  static void suite##_##test([[maybe_unused]] const RowOf<decltype(table)>& row)

template <class Table>
using RowOf = std::remove_cvref_t<decltype(*std::begin(std::declval<Table&>()))>;

template <class Row>
class RowTest : public testing::Test {
 public:
  RowTest(const Row& row, void (*body)(const Row&)) : row_(row), body_(body) {}
  void TestBody() override { body_(row_); }

 private:
  const Row& row_;
  void (*body_)(const Row&);
};

template <class Table>
bool registerRows(const char* suite, const char* test, const char* file, int line, const Table& table,
                  void (*body)(const RowOf<Table>&)) {
  if (std::empty(table)) std::abort();  // its rows come from a file that is not there
  for (const auto& row : table) {
    const auto newTest = [&row, body]() -> testing::Test* { return new RowTest(row, body); };
    testing::RegisterTest(suite, (std::string(test) + "/" + row.name).c_str(), nullptr, nullptr, file, line,
                          newTest);
  }
  return true;
}

// A row of a table whose tests read a string and name what comes of it in another.
struct OutcomeRow {
  const char* name;
  const char* input;
  const char* outcome;
};

#endif  // TEST_ROWS_H_
