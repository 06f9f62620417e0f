#ifndef RANDOM_ITEMS_H_
#define RANDOM_ITEMS_H_

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

// Items with 1 to 14 `res` elements that mix what the selection knows with what it does not, near misses and
// broken texts, as lines of `check --batch`; none of the texts needs an escape. Whatever they say, no server
// is ever asked. The same seed gives the same items on every machine.
class RandomItems {
 public:
  explicit RandomItems(uint32_t seed) : random_(seed) {}

  std::string nextLine() {
    const std::string uri =
        word("item item item http://media.example/item https://127.0.0.1/item http://127.0.0.1/item");
    const std::string region = word("0 1 1 1 2 3 16 18");
    std::string metadata = "<DIDL-Lite><item><dc:title>random</dc:title>";
    const char* scheme = uri.starts_with("https") ? "https" : "http";
    const bool internet = uri.find("example") != uri.npos;
    if (uri == "http://127.0.0.1/item") metadata += "<desc>RVUALLIANCE</desc>";  // never asked for
    // Quick tests would accept most of what the Internet offers over HTTP.
    protocol_ = internet && below(8) != 0 ? "rtsp-rtp-udp:*:" : "http-get:*:";
    const Pool& theme = kPools[below(3)];
    for (size_t count = 1 + below(14); count > 0; --count)
      metadata += res(below(5) == 0 ? kPools[below(3)] : theme, scheme);
    return R"({"uri":")" + uri + R"(","metadata":")" + metadata + R"(</item></DIDL-Lite>","region":)" +
           region + "}\n";
  }

 private:
  // Words to choose from; "-" is the empty text.
  struct Pool {
    const char* mimeTypes;
    const char* profiles;
    const char* extensions;
    bool multiPicture;
  };
  static constexpr Pool kPools[] = {
      {"image/jpeg image/jpeg image/jpeg image/x-orsa-kzr image/png image/jpeg;q=1",
       "- - - JPEG_LRG JPEG_MED JPEG_SM JPEG_TN KZR PNG_LRG", ".jpg .JPG .kzr .mpo -", true},
      {"audio/mpeg audio/L16;rate=44100;channels=2 audio/x-flac audio/mp4 audio/mp4;codecs=mp4a.40.2 "
       "audio/3gpp audio/x-wav application/ogg audio/ogg audio/x-ms-wma audio/x-ms-wma Audio/MPEG",
       "- - MP3 MP3X LPCM FLAC WMABASE WMAFULL WMABASE_2 AAC_ISO_320", ".mp3 .amr .3gp .wma -", false},
      {"video/mpeg video/vnd.dlna.mpeg-tts video/mp4 video/x-matroska video/x-msvideo video/x-ms-wmv "
       "video/x-ms-asf video/3gpp video/quicktime application/octet-stream application/vnd.rn-realmedia "
       "application/x-mpegURL VIDEO/mp4 video/unknown video/x-xvid",
       "- - MPEG_PS_NTSC MPEG1 AVC_TS_HD_EU AVC_TS_HD_24_AC3_ISO MPEG_TS_SD_NA_X WMVHIGH_FULL WMVMED_BASE_X "
       "DTCP_AVC_TS_HD_60_AC3 AVC_MP4_X",
       ".mpg .m2ts .MKV .avi .rm .rmvb .tar.xvid -", false},
  };

  size_t below(size_t limit) { return random_() % limit; }

  std::string word(std::string_view words) {
    for (size_t n = below(static_cast<size_t>(std::ranges::count(words, ' ')) + 1); n > 0; --n)
      words.remove_prefix(words.find(' ') + 1);
    const std::string_view chosen = words.substr(0, words.find(' '));
    return chosen == "-" ? "" : std::string(chosen);
  }

  std::string protocolInfo(const Pool& pool) {
    if (below(16) == 0)
      return word(
          "- http-get http-get: http-get:* a:b:CONTENTFORMAT=x;=:* a:*:video/mpeg:=x a:*:audio/mpeg: :::");
    std::string text = protocol_ + word(pool.mimeTypes);
    if (below(12) == 0)
      text = protocol_ + "application/x-dtcp1;CONTENTFORMAT=&quot;" + word(pool.mimeTypes) + "&quot;";
    if (below(12) == 0) return text;
    text += ':';
    const std::string profile = word(pool.profiles);
    if (!profile.empty()) text += word("DLNA.ORG_PN= DLNA.ORG_PN= DLNA.ORG_PN= ORSA.COM_PN=") + profile + ";";
    if (below(10) == 0) text += word("ORSA.COM_PN=HD2_60_T; ORSA.COM_PN=DTCP_SESF_60_AC3_T;");
    if (below(20) == 0) text += "ARIB.OR.JP_PN=MPEG_TTS_CP;";
    text += word("- DLNA.ORG_OP=01; DLNA.ORG_OP=10; DLNA.ORG_OP=0;");
    text += word("- DLNA.ORG_CI=0 DLNA.ORG_CI=1 DLNA.ORG_CI=1");
    return text;
  }

  std::string res(const Pool& pool, const std::string& scheme) {
    std::string text = "<res";
    const std::string info = protocolInfo(pool);
    const std::string size =
        word("- 640x480 1280x720 1920x1080 1920x1080 3840x2160 20000x100 16384x16384 9:9 1080x1920");
    if (!info.empty()) text += " protocolInfo='" + info + "'";
    if (!size.empty()) text += " resolution='" + size + "'";
    if (pool.multiPicture && below(6) == 0) text += " av:mpfEntries='" + std::to_string(below(8)) + "'";
    return text + ">" + scheme + "://127.0.0.1/a" + word(pool.extensions) + "</res>";
  }

  std::mt19937 random_;
  std::string protocol_;
};

#endif  // RANDOM_ITEMS_H_
