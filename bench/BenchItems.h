#ifndef BENCH_ITEMS_H_
#define BENCH_ITEMS_H_

#include <string>

// An item with `count` `res` elements as media servers write them, of the kinds that a contest has to look
// at.
inline std::string videoItem(int count) {
  const char* formats[] = {
      "video/mpeg:DLNA.ORG_PN=MPEG_PS_NTSC;DLNA.ORG_OP=01;DLNA.ORG_CI=1",
      "video/vnd.dlna.mpeg-tts:DLNA.ORG_PN=MPEG_TS_SD_NA_T;DLNA.ORG_OP=11;DLNA.ORG_CI=0",
      "video/mp4:DLNA.ORG_PN=AVC_MP4_MP_HD_1080i_AAC;DLNA.ORG_OP=01;DLNA.ORG_CI=0",
      "video/x-matroska:DLNA.ORG_OP=01;DLNA.ORG_CI=0",
  };
  std::string text =
      "<DIDL-Lite xmlns=\"urn:schemas-upnp-org:metadata-1-0/DIDL-Lite/\" "
      "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:upnp=\"urn:schemas-upnp-org:metadata-1-0/upnp/\">"
      "<item id=\"64$0$1\" parentID=\"64$0\" restricted=\"1\"><dc:title>Harbour at dawn</dc:title>"
      "<upnp:class>object.item.videoItem.movie</upnp:class><dc:date>2020-01-01</dc:date>";
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    text += "<res size=\"" + std::to_string(36524 + i) +
            "\" duration=\"0:42:07.000\" bitrate=\"35119\" sampleFrequency=\"48000\" nrAudioChannels=\"2\" "
            "resolution=\"" +
            std::to_string(320 + 2 * i) + "x240\" protocolInfo=\"http-get:*:" + formats[i % 4] +
            ";DLNA.ORG_FLAGS=01700000000000000000000000000000\">http://192.168.0.7:8200/MediaItems/" +
            number + (i % 4 == 3 ? ".mkv" : ".mpg") + "</res>";
  }
  return text + "</item></DIDL-Lite>";
}

#endif  // BENCH_ITEMS_H_
