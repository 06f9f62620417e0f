#ifndef TARQ_DLNA_RES_SELECTION_H_
#define TARQ_DLNA_RES_SELECTION_H_

#include <cstdint>
#include <optional>

#include "ResContest.h"
#include "TarqCdsAccess.h"
#include "TarqDlnaResMetadata.h"

// Picks the one `res` element of a DIDL-Lite object that this renderer plays best.
// Threads: an object and its records belong to one thread. The first selection of a process must end before
// another starts (it fills two process-wide maps); after that any number may run at once. Owns: nothing.
// `records` is the caller's array, one new record per `res` element in document order. Result of every
// "select...ResIndex": the index of the chosen record from 0, or -1 when there is none; of those that take
// `scores`: as many as `count`, all 0, which they fill.
class TarqDlnaResSelection {
 public:
  explicit TarqDlnaResSelection(int32_t currentRegion) : region(currentRegion) {}

  // Fills the records, decides the media kind of the object and holds the contest for it. Writes its result
  // to
  // `*selected` once a kind is decided, else leaves it alone. `excludeHls` other than 0 refuses a video that
  // offers an HTTP Live Streaming playlist. Always 0.
  int selectMediaResIndex(const TARQ_Object* object, TarqDlnaResMetadata* records, int count, int* selected,
                          int excludeHls);

  // The category of one `res` element; any argument may be null.
  int selectMediaCategory(const char* mimeType, const char* extension, const char* dlnaPn) const;
  // The extension of the URL's last path segment, from its first "." on and without a query. -1, leaving
  // `extension` alone, when `url` has no "/"; else 0.
  static int getFileExtension(const char* url, VondString& extension);
  // The format of a video by MIME type and extension; null when unknown. Either may be null. `*weight`
  // becomes 200 (identified) or 100 (guessed); without a format it stays.
  const char* getVideoCodecFormat(const char* mime, const char* extension, int* weight) const;

  int selectPhotoResIndex(int count, TarqDlnaResMetadata* records);
  int selectPhotoResIndex(int count, TarqDlnaResMetadata* records, ResScore* scores) const;
  int selectPhotoResIndex_MPO(int count, TarqDlnaResMetadata* records);

  bool IsWMAContent(int count, TarqDlnaResMetadata* records) const;
  int selectMusicResIndex_WMA(int count, TarqDlnaResMetadata* records);
  int selectMusicResIndex_WMA(int count, TarqDlnaResMetadata* records, ResScore* scores) const;
  int selectMusicResIndex(int count, TarqDlnaResMetadata* records);
  int selectMusicResIndex(int count, TarqDlnaResMetadata* records, ResScore* scores) const;

  bool IsM3U8Content(int count, TarqDlnaResMetadata* records) const;
  bool IsWMVContent(int count, TarqDlnaResMetadata* records) const;
  int selectVideoResIndex(int count, TarqDlnaResMetadata* records);
  int selectVideoResIndex(int count, TarqDlnaResMetadata* records, ResScore* scores) const;
  int selectVideoResIndex_WMV(int count, TarqDlnaResMetadata* records);
  int selectVideoResIndex_WMV(int count, TarqDlnaResMetadata* records, ResScore* scores) const;

  // Fills the process-wide maps of the video tables; again, it changes nothing.
  static void maptheProfiles();

 private:
  bool readRecord(const TARQ_Object* object, unsigned int index, TarqDlnaResMetadata& record);
  int readRecords(const TARQ_Object* object, TarqDlnaResMetadata* records, int count);

  std::optional<int32_t> classifyVideo(TarqDlnaResMetadata& record) const;
  std::optional<int32_t> classifyByMimeRule(TarqDlnaResMetadata& record) const;
  bool classifyWmv(TarqDlnaResMetadata& record, ResScore& score) const;

  bool mpoPresent = false;  // some photo is a multi-picture file
  int32_t region;           // a bit set; 16 as a whole also means RealMedia
};

#endif  // TARQ_DLNA_RES_SELECTION_H_
