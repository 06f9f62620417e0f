#ifndef TARQ_DMR_JOB_LIMIT_H_
#define TARQ_DMR_JOB_LIMIT_H_

// How many of so many jobs find the descriptors that they need (RLIMIT_NOFILE). When it is fewer, a line on
// standard error says so.
// Errors: CommandError when not even one does.
int jobsThatFit(int jobs);

#endif  // TARQ_DMR_JOB_LIMIT_H_
