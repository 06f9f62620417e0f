#ifndef TARQ_DLNA_RES_SELECTION_H_
#define TARQ_DLNA_RES_SELECTION_H_

#include <cstdint>

#include "TarqCdsAccess.h"
#include "TarqDlnaResMetadata.h"

// Picks the one `res` element of a DIDL-Lite object that this renderer plays best.
//
// In every operation `records` is the caller's array of `count` records, one for each `res` element in
// document order. The contests ("select...ResIndex") write the format and the score of each.
// Returns: a contest, the index of the chosen record from 0, or -1 when there is none.
// Ownership: nothing.
// Threads: an object and its records belong to one thread; any number of objects may select at once.
class TarqDlnaResSelection {
 public:
  explicit TarqDlnaResSelection(int32_t currentRegion) : region(currentRegion) {}

  // Reads the `res` elements into `records`, which are new, and holds the contest that the object calls for.
  // Writes its result to `*selected` once a media kind is decided, else leaves it alone. `excludeHls` other
  // than 0 refuses a video that offers an HTTP Live Streaming playlist.
  // Returns: 0.
  int selectMediaResIndex(const TARQ_Object* object, TarqDlnaResMetadata* records, int count, int* selected,
                          int excludeHls);

  // The same, and what was decided on the way.
  ResChoice choose(const TARQ_Object* object, TarqDlnaResMetadata* records, int count, int excludeHls);

  // Two of its steps, for whoever asks what another choice would have been.
  // Decides which contest an object of that media kind calls for.
  void decideContest(ResChoice& choice, int count, const TarqDlnaResMetadata* records, int excludeHls) const;
  // Holds it and writes the winner. When the multi-picture contest has no candidate, the
  // photo contest decides.
  void holdContest(ResChoice& choice, int count, TarqDlnaResMetadata* records);

  // The category of one `res` element; writes to `*stage`, unless it is null, what decided it.
  // Null: any string may be null.
  MediaCategory selectMediaCategory(const char* mimeType, const char* extension, const char* dlnaPn,
                                    CategoryStage* stage = nullptr) const;

  // The extension of the URL's last path segment, from its first "." on and without a query.
  // Returns: 0, or -1 with `extension` unchanged when `url` has no "/".
  static int getFileExtension(const char* url, VondString& extension);

  // The format of a video by MIME type and extension. With a format, `*weight` becomes 200 (identified) or
  // 100 (guessed), and `*rule`, unless it is null, what identified it; without one they stay.
  // Returns: a constant, null when the format is unknown.
  // Null: either string may be null.
  const char* getVideoCodecFormat(const char* mime, const char* extension, int* weight,
                                  ResRule* rule = nullptr) const;

  int selectPhotoResIndex(int count, TarqDlnaResMetadata* records);
  int selectPhotoResIndex_MPO(int count, TarqDlnaResMetadata* records);

  bool IsWMAContent(int count, const TarqDlnaResMetadata* records) const;
  int selectMusicResIndex_WMA(int count, TarqDlnaResMetadata* records);
  int selectMusicResIndex(int count, TarqDlnaResMetadata* records);

  bool IsM3U8Content(int count, const TarqDlnaResMetadata* records) const;
  bool IsWMVContent(int count, const TarqDlnaResMetadata* records) const;
  int selectVideoResIndex(int count, TarqDlnaResMetadata* records);
  int selectVideoResIndex_WMV(int count, TarqDlnaResMetadata* records);

  // Fills the process-wide maps of the video tables. A second call changes nothing.
  static void maptheProfiles();

 private:
  void readRecords(const TARQ_Object* object, TarqDlnaResMetadata* records, int count);
  ResSkip readRecord(const TARQ_Object* object, unsigned int index, TarqDlnaResMetadata& record);
  void classifyMedia(const TARQ_Attributes* attributes, TarqDlnaResMetadata& record);

  int runContest(ResContestKind contest, int count, TarqDlnaResMetadata* records);
  bool classifyVideo(TarqDlnaResMetadata& record) const;
  bool classifyWmv(TarqDlnaResMetadata& record) const;
  int32_t classifyByCodec(TarqDlnaResMetadata& record) const;
  bool classifyByMimeRow(TarqDlnaResMetadata& record) const;

  bool mpoPresent = false;  // some photo is a multi-picture file
  int32_t region;           // a bit set; 16 as a whole also means RealMedia
};

// The first record of unconverted Windows Media, or -1.
int firstWindowsMediaAudio(int count, const TarqDlnaResMetadata* records);
int firstWindowsMediaVideo(int count, const TarqDlnaResMetadata* records);

#endif  // TARQ_DLNA_RES_SELECTION_H_
