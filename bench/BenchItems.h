#ifndef BENCH_ITEMS_H_
#define BENCH_ITEMS_H_

#include <string>
#include <string_view>

// What the `res` elements of an item offer, which decides the contest that is held for it.
struct BenchKind {
  std::string_view name;
  std::string_view upnpClass;
  const char* contents[4];  // third and fourth protocolInfo field, in turn
  const char* extensions[4];
  const char* attributes;  // before the resolution
};

inline constexpr BenchKind kBenchKinds[] = {
    {"video",
     "object.item.videoItem.movie",
     {"video/mpeg:DLNA.ORG_PN=MPEG_PS_NTSC;DLNA.ORG_OP=01;DLNA.ORG_CI=1",
      "video/vnd.dlna.mpeg-tts:DLNA.ORG_PN=MPEG_TS_SD_NA_T;DLNA.ORG_OP=11;DLNA.ORG_CI=0",
      "video/mp4:DLNA.ORG_PN=AVC_MP4_MP_HD_1080i_AAC;DLNA.ORG_OP=01;DLNA.ORG_CI=0",
      "video/x-matroska:DLNA.ORG_OP=01;DLNA.ORG_CI=0"},
     {"mpg", "mpg", "m4v", "mkv"},
     "duration=\"0:42:07.000\" bitrate=\"35119\" sampleFrequency=\"48000\" nrAudioChannels=\"2\""},
    {"music",
     "object.item.audioItem.musicTrack",
     {"audio/mpeg:DLNA.ORG_PN=MP3;DLNA.ORG_OP=01;DLNA.ORG_CI=0", "audio/L16:DLNA.ORG_PN=LPCM;DLNA.ORG_CI=1",
      "audio/x-flac:DLNA.ORG_OP=01;DLNA.ORG_CI=0",
      "audio/mp4:DLNA.ORG_PN=AAC_ISO_320;DLNA.ORG_OP=01;DLNA.ORG_CI=0"},
     {"mp3", "pcm", "flac", "m4a"},
     "duration=\"0:03:09.000\" bitrate=\"163376\" sampleFrequency=\"44100\" nrAudioChannels=\"2\""},
    {"photo",
     "object.item.imageItem.photo",
     {"image/jpeg:DLNA.ORG_PN=JPEG_LRG;DLNA.ORG_OP=01;DLNA.ORG_CI=0",
      "image/jpeg:DLNA.ORG_PN=JPEG_MED;DLNA.ORG_CI=1", "image/jpeg:DLNA.ORG_PN=JPEG_SM;DLNA.ORG_CI=1",
      "image/jpeg:DLNA.ORG_PN=JPEG_TN;DLNA.ORG_CI=1"},
     {"jpg", "jpg", "jpg", "jpg"},
     "colorDepth=\"24\""},
};

inline std::string benchRes(const BenchKind& kind, int index) {
  const auto form = static_cast<size_t>(index % 4);
  return "<res size=\"" + std::to_string(36524 + index) + "\" " + kind.attributes + " resolution=\"" +
         std::to_string(320 + 2 * index) + "x240\" protocolInfo=\"http-get:*:" + kind.contents[form] +
         ";DLNA.ORG_FLAGS=01700000000000000000000000000000\">http://192.168.0.7:8200/MediaItems/" +
         std::to_string(index) + "." + kind.extensions[form] + "</res>";
}

// An item with `count` `res` elements as media servers write them.
inline std::string benchItem(const BenchKind& kind, int count) {
  std::string didl =
      "<DIDL-Lite xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
      "xmlns:upnp=\"urn:schemas-upnp-org:metadata-1-0/upnp/\" "
      "xmlns=\"urn:schemas-upnp-org:metadata-1-0/DIDL-Lite/\" "
      "xmlns:dlna=\"urn:schemas-dlna-org:metadata-1-0/\">"
      "<item id=\"64$0$1\" parentID=\"64$0\" restricted=\"1\"><dc:title>Harbour at "
      "dawn</dc:title><upnp:class>" +
      std::string(kind.upnpClass) +
      "</upnp:class><dc:creator>Somebody</dc:creator><dc:date>2020-01-01</dc:date>";
  for (int i = 0; i < count; ++i) didl += benchRes(kind, i);
  return didl + "</item></DIDL-Lite>";
}

#endif  // BENCH_ITEMS_H_
