#include "UpnpCodes.h"

#include <algorithm>

#include "ResultText.h"
#include "TarqDmrPlayerInterface.h"
#include "TarqResourceCheckerInterface.h"

namespace {

constexpr int kActionFailed = 501;

constexpr struct {
  int code;
  int upnp;
} kCheckRows[] = {
    {kNoHttpClient, 603},
    {kCancelled, kActionFailed},
    {kRequestCancelled, kActionFailed},
    {kNotHttp, 714},
    {kNothingPlayable, 714},
    {kServerBusy, 715},
    {kServerError, 716},
    {kForbidden, 716},
    {kNameNotResolved, 716},
    {kConnectFailed, 716},
    {kTimedOut, 716},
};

constexpr PlayerOperation kAny = PlayerOperation::kOther;

// The first row of a code with the operation or kAny counts.
constexpr struct {
  int code;
  PlayerOperation operation;
  int upnp;
} kPlayerRows[] = {
    {kPlayerNotSupported, PlayerOperation::kSeek, 710},
    {kPlayerNotSupported, PlayerOperation::kPause, 701},
    {kPlayerOutOfMemory, kAny, 603},
    {kPlayerInvalidArgument, PlayerOperation::kPlay, 717},
    {kPlayerInvalidArgument, PlayerOperation::kSeek, 711},
    {kPlayerInvalidArgument, PlayerOperation::kSetVolume, 601},
    {kPlayerInvalidArgument, PlayerOperation::kSetSource, 714},
    {kPlayerInvalidArgument, kAny, 402},
    {kPlayerInvalidState, kAny, 701},
};

}  // namespace

ActionError errorOfCheck(int code) {
  const auto row = std::ranges::find_if(kCheckRows, [code](const auto& each) { return each.code == code; });
  const int upnp = row == std::end(kCheckRows) ? kActionFailed : row->upnp;
  return {upnp, describe(code) + std::string(" (") + std::to_string(code) + ")"};
}

void requireDone(PlayerOperation operation, int code) {
  if (code == kPlayerOk) return;
  const auto row = std::ranges::find_if(kPlayerRows, [&](const auto& each) {
    return each.code == code && (each.operation == operation || each.operation == kAny);
  });
  throw ActionError{row == std::end(kPlayerRows) ? kActionFailed : row->upnp,
                    "the player answered " + std::to_string(code)};
}
