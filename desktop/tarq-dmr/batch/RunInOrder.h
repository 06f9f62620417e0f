#ifndef TARQ_DMR_RUN_IN_ORDER_H_
#define TARQ_DMR_RUN_IN_ORDER_H_

#include <cstddef>
#include <functional>

using NumberedStep = std::function<void(size_t number)>;

// Runs `work` for every number in [begin, end), `jobs` at a time, and `deliver` for each in the order of the
// numbers, as soon as its work and that of all before it is done. Returns when everything is delivered.
// Threads: `work` runs on any thread and must not throw; `deliver` runs on the caller's.
// Errors: what `deliver` throws; no further work is begun then.
void runInOrder(size_t begin, size_t end, int jobs, const NumberedStep& work, const NumberedStep& deliver);

#endif  // TARQ_DMR_RUN_IN_ORDER_H_
