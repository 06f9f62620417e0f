#ifndef TARQ_DMR_CHECK_COMMAND_H_
#define TARQ_DMR_CHECK_COMMAND_H_

#include "ResourceOptions.h"

using CheckOptions = ResourceOptions;
int runCheck(const CheckOptions& options);

#endif  // TARQ_DMR_CHECK_COMMAND_H_
