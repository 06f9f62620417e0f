#ifndef RES_DECISIONS_H_
#define RES_DECISIONS_H_

#include <cstdint>

#include "MediaCategory.h"
#include "ResPoints.h"

// What a selection decided and why. The selection records it as it goes; whoever explains a choice reads it
// from here and decides nothing again.

// Why nothing was read of a `res` element.
enum class ResSkip : uint8_t {
  kNone,            // it was read
  kNoProtocolInfo,  // the attribute is missing
  kNoColon,         // the protocolInfo has a single field
  kNoUrl,
  kBadProtocolInfo,
  kBadContentFormat,  // the third field should wrap a MIME type, but does not parse
  kBadFourthField,
};

// What decided the category of a `res` element.
enum class CategoryStage : uint8_t { kNone, kMimeType, kProfileName, kExtension };

// The rule that let a candidate in, or kept it out.
enum class ResRule : uint8_t {
  // In.
  kProfile,             // a known profile name
  kMimeType,            // a known MIME type and no profile name
  kMimeAndExtension,    // no profile name: MIME type and extension together identify the format
  kMimeAlone,           // no profile name: the MIME type alone identifies the format
  kMimeGuess,           // no profile name: the format is guessed from the MIME type
  kUnknownProfileMime,  // an unknown profile name beside a known MIME type and extension
  kSeekable,            // a Windows Media profile, and the server supports byte seek
  kNotSeekable,         // a Windows Media profile, and the server does not
  kWindowsMediaMime,    // Windows Media by its MIME type
  kMultiPicture,        // a multi-picture file; has a rank instead of points
  // Out.
  kUnknown,  // no rule knows it; the next five say more once the contest is over
  kSkipped,  // nothing was read of it
  kOtherKind,
  kUnknownProfile,
  kNoMimeType,
  kUnknownMimeType,
  kProfileNotInRegion,
  kThreeGppAmr,      // 3GPP audio whose extension is "amr" or missing
  kNotMultiPicture,  // lacks what a multi-picture file needs
};

constexpr bool isOut(ResRule rule) { return rule >= ResRule::kUnknown; }

// A candidate of the multi-picture contest.
struct MpoRank {
  int32_t rank = 0;      // by the number of pictures, higher is better; 0: out
  int32_t overArea = 0;  // pixels above the full-HD area; negative: below
  bool fullHd = false;
};

// How one `res` element did in the contest.
struct ResScore {
  ResRule rule = ResRule::kUnknown;
  ResPoints primary;
  ResPoints secondary;  // in the two Windows Media contests only: hard to seek in, or a guess
  MpoRank mpo;          // in the multi-picture contest only

  // Adds to each of the two that is above 0 at this moment.
  void addWherePositive(int32_t ResPoints::*cause, int32_t points) {
    if (primary.total() > 0) primary.*cause += points;
    if (secondary.total() > 0) secondary.*cause += points;
  }
  // The points that take part in the pick.
  const ResPoints& counted() const { return secondary.format > 0 ? secondary : primary; }
};

enum class ResContestKind : uint8_t {
  kNone,  // no `res` element is photo, music or video
  kPhoto,
  kMpo,  // a photo, and one of its elements is a multi-picture file
  kMusic,
  kWma,  // music, and one of its elements is unconverted Windows Media
  kVideo,
  kWmv,         // a video, and one of its elements is unconverted Windows Media
  kHlsRefused,  // a video with a playlist, where playlists are not wanted
};

// The choice among the `res` elements of one object. Every index is that of an element, -1: none.
struct ResChoice {
  MediaCategory kind = kCategoryUnknown;  // the media kind of the object
  int kindFrom = -1;                      // the element that decided it
  ResContestKind contest = ResContestKind::kNone;
  int contestFrom =
      -1;  // the element that called for a special contest, also when the photo contest then decided
  int winner = -1;

  bool contestHeld() const {
    return contest != ResContestKind::kNone && contest != ResContestKind::kHlsRefused;
  }
};

#endif  // RES_DECISIONS_H_
