#ifndef TEST_ROWS_H_
#define TEST_ROWS_H_

#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <string>

// TEST_ROWS(Suite, Name, table) { ... } is one test for each row of a table, so that a failure names its row
// and a filter runs it alone: Suite.Name/rowName. The body sees its row as `row`. The table has static
// storage; its rows have a `name` of letters and digits, different in each.
#define TEST_ROWS(suite, test, table)                                         \
  struct suite##_##test : testing::Test {                                     \
    using Row = decltype(*std::begin(table));                                 \
    explicit suite##_##test(Row theRow) : row(theRow) {}                      \
    void TestBody() override;                                                 \
    Row row;                                                                  \
  };                                                                          \
  static const bool suite##_##test##_registered =                             \
      registerRows<suite##_##test>(#suite, #test, table, __FILE__, __LINE__); \
  void suite##_##test::TestBody()

template <class Test, class Table>
bool registerRows(const char* suite, const char* test, const Table& table, const char* file, int line) {
  if (std::empty(table)) std::abort();  // its rows come from a file that is not there
  for (const auto& row : table) {
    const auto newTest = [&row]() -> testing::Test* { return new Test(row); };
    const std::string name = std::string(test) + "/" + row.name;
    testing::RegisterTest(suite, name.c_str(), nullptr, nullptr, file, line, newTest);
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
