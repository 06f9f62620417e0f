#ifndef TARQ_PAGE_DATA_H_
#define TARQ_PAGE_DATA_H_

#include <string>

#include "Rendering.h"
#include "RequestHistory.h"
#include "Transport.h"

// What the renderer's page shows, as one object: what is playing, and the requests with a number above `after`.
std::string pageData(const std::string& name, const TransportSnapshot& transport,
                     const RenderingState& rendering, const RequestHistory& history, int64_t after);

#endif  // TARQ_PAGE_DATA_H_
