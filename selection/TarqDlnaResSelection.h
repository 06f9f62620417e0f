#ifndef TARQ_DLNA_RES_SELECTION_H_
#define TARQ_DLNA_RES_SELECTION_H_

#include <cstdint>

#include "ResContest.h"
#include "TarqCdsAccess.h"
#include "TarqDlnaResMetadata.h"

// What told the category of a `res` element.
enum class CategoryStage { kNone, kMimeType, kProfileName, kExtension };

// The contest that an object comes to.
enum class ResContestKind {
  kNone,  // no `res` element is photo, music or video
  kPhoto,
  kMpo,  // a photo, and one of its elements is a multi-picture file
  kMusic,
  kWma,  // music, and one of its elements is unconverted Windows Media
  kVideo,
  kWmv,        // a video, and one of its elements is unconverted Windows Media
  kHlsRefused  // a video with a playlist, where those are not wanted
};

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

  // The steps of it, for whoever wants to look at each.
  // Fills the records; the index of the last one that is photo, music or video, or -1.
  int readRecords(const TARQ_Object* object, TarqDlnaResMetadata* records, int count);
  // The index of the record whose category is the media kind of the object; `lastClassified` not -1.
  static int decidingRecord(const TarqDlnaResMetadata* records, int lastClassified);
  ResContestKind contestFor(const TarqDlnaResMetadata* records, int count, int lastClassified,
                            int excludeHls) const;

  // The category of one `res` element; any argument may be null. `*stage` becomes what told it.
  int selectMediaCategory(const char* mimeType, const char* extension, const char* dlnaPn,
                          CategoryStage* stage = nullptr) const;
  // Whether a third protocolInfo field, which may be null, wraps the MIME type of link-protected content.
  static bool wrapsMimeType(const char* contentFormat);
  // The extension of the URL's last path segment, from its first "." on and without a query. -1, leaving
  // `extension` alone, when `url` has no "/"; else 0.
  static int getFileExtension(const char* url, VondString& extension);
  // The format of a video by MIME type and extension; null when unknown. Either may be null. `*weight`
  // becomes 200 (identified) or 100 (guessed); without a format it stays.
  const char* getVideoCodecFormat(const char* mime, const char* extension, int* weight) const;

  int selectPhotoResIndex(int count, TarqDlnaResMetadata* records);
  int selectPhotoResIndex(int count, TarqDlnaResMetadata* records, ResScore* scores) const;
  int selectPhotoResIndex_MPO(int count, TarqDlnaResMetadata* records);
  // The multi-picture contest alone; -1 when it has no candidate. `photos` may be null.
  static int pickMpo(int count, const TarqDlnaResMetadata* records, MpoPhoto* photos);

  bool IsWMAContent(int count, const TarqDlnaResMetadata* records) const;
  int selectMusicResIndex_WMA(int count, TarqDlnaResMetadata* records);
  int selectMusicResIndex_WMA(int count, TarqDlnaResMetadata* records, ResScore* scores) const;
  int selectMusicResIndex(int count, TarqDlnaResMetadata* records);
  int selectMusicResIndex(int count, TarqDlnaResMetadata* records, ResScore* scores) const;

  bool IsM3U8Content(int count, const TarqDlnaResMetadata* records) const;
  bool IsWMVContent(int count, const TarqDlnaResMetadata* records) const;
  int selectVideoResIndex(int count, TarqDlnaResMetadata* records);
  int selectVideoResIndex(int count, TarqDlnaResMetadata* records, ResScore* scores) const;
  int selectVideoResIndex_WMV(int count, TarqDlnaResMetadata* records);
  int selectVideoResIndex_WMV(int count, TarqDlnaResMetadata* records, ResScore* scores) const;

  // Fills the process-wide maps of the video tables; again, it changes nothing.
  static void maptheProfiles();

 private:
  bool readRecord(const TARQ_Object* object, unsigned int index, TarqDlnaResMetadata& record);

  bool classifyVideo(TarqDlnaResMetadata& record, ResScore& score) const;
  bool classifyByMimeRule(TarqDlnaResMetadata& record, ResScore& score) const;
  bool classifyWmv(TarqDlnaResMetadata& record, ResScore& score) const;
  int32_t classifyByCodec(TarqDlnaResMetadata& record, ResRule& rule) const;

  bool mpoPresent = false;  // some photo is a multi-picture file
  int32_t region;           // a bit set; 16 as a whole also means RealMedia
};

#endif  // TARQ_DLNA_RES_SELECTION_H_
