#ifndef TARQ_DMR_RES_TEXT_H_
#define TARQ_DMR_RES_TEXT_H_

#include "Explanation.h"
#include "Steps.h"

// The two steps about the `res` elements: what each says, and the contest between them.
void showRes(Steps& steps, const Explanation& explanation);
void showContest(Steps& steps, const Explanation& explanation);

#endif  // TARQ_DMR_RES_TEXT_H_
