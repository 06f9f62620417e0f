#ifndef TARQ_SURVEYED_ITEM_H_
#define TARQ_SURVEYED_ITEM_H_

#include <string>
#include <vector>

#include "CheckFacts.h"
#include "LibraryItem.h"

// The item with what a check says of it, one for each region of the survey in its order.
// Ownership: the facts point into the item: it must not move.
struct SurveyedItem {
  LibraryItem item;
  std::vector<CheckFacts> facts;
  std::vector<std::string> pageItems;  // the facts as a page shows them, where one is wanted
};

#endif  // TARQ_SURVEYED_ITEM_H_
