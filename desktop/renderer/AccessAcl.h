#ifndef TARQ_ACCESS_ACL_H_
#define TARQ_ACCESS_ACL_H_

#include <libgupnp/gupnp.h>

#include "AccessLists.h"

// GUPnP's question who may control the renderer, answered by the access lists; a device that is new is asked for
// on a thread.
// Ownership: the caller unrefs it. `access` must outlive it.
GUPnPAcl* newAccessAcl(AccessLists& access);

#endif  // TARQ_ACCESS_ACL_H_
