#ifndef OUTCOME_ROWS_H_
#define OUTCOME_ROWS_H_

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

// Each row reads "input => outcome"; a failure shows its row.
template <class OutcomeOf>
void expectOutcomes(OutcomeOf outcomeOf, std::initializer_list<std::string> rows) {
  for (const std::string& row : rows) {
    const size_t arrow = row.find(" => ");
    EXPECT_EQ(outcomeOf(row.substr(0, arrow).c_str()), row.substr(arrow + 4)) << row;
  }
}

#endif  // OUTCOME_ROWS_H_
