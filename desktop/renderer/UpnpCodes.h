#ifndef TARQ_UPNP_CODES_H_
#define TARQ_UPNP_CODES_H_

#include "ActionCall.h"

// Result codes of the plug-in as UPnP errors.

ActionError errorOfCheck(int code);  // of a check that did not accept; described by its words

// What was asked of the player; where the same code means different errors, it decides.
enum class PlayerOperation { kSetSource, kPlay, kPause, kSeek, kSetVolume, kOther };
// Errors: ActionError for a code other than kPlayerOk.
void requireDone(PlayerOperation operation, int code);

#endif  // TARQ_UPNP_CODES_H_
