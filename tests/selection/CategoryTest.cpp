#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DidlText.h"
#include "TarqDlnaResSelection.h"

namespace {

struct CategoryCase {
  const char* name;
  const char* mimeType;
  const char* extension;
  const char* dlnaPn;
  int expected;
};

class MediaCategory : public testing::TestWithParam<CategoryCase> {};

TEST_P(MediaCategory, ComesFromTheFirstStageThatDecides) {
  const CategoryCase& c = GetParam();
  EXPECT_EQ(TarqDlnaResSelection(1).selectMediaCategory(c.mimeType, c.extension, c.dlnaPn), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    , MediaCategory,
    testing::Values(CategoryCase{"MimeTypeFirst", "IMAGE/Jpeg;x=1", "mp4", "MP3", kCategoryPhoto},
                    CategoryCase{"OggIsMusic", "application/ogg", nullptr, nullptr, kCategoryMusic},
                    CategoryCase{"OctetStreamIsVideo", "application/octet-stream", "mp3", "MP3",
                                 kCategoryVideo},
                    CategoryCase{"BrokenMimeType", "audio/", "mpg", "JPEG_TN", kCategoryPhoto},
                    CategoryCase{"WmaProfileBegins", "text/plain", nullptr, "WMABASEX", kCategoryMusic},
                    CategoryCase{"Mp3ProfileIsWhole", nullptr, "avi", "MP3X", kCategoryVideo},
                    CategoryCase{"VideoProfile", nullptr, "jpg", "MPEG1", kCategoryVideo},
                    CategoryCase{"VideoProfileIsWhole", nullptr, "jpg", "MPEG1_X", kCategoryPhoto},
                    CategoryCase{"ExtensionIgnoresCase", nullptr, "Mp3", nullptr, kCategoryMusic},
                    CategoryCase{"ThreeGpIsMusic", nullptr, "3gp", nullptr, kCategoryMusic},
                    CategoryCase{"ExtensionIsWhole", nullptr, "mp3x", nullptr, kCategoryUnknown},
                    CategoryCase{"Nothing", nullptr, nullptr, nullptr, kCategoryUnknown}),
    [](const auto& i) { return std::string(i.param.name); });

TEST(FileExtension, IsCutFromTheLastSegment) {
  const struct {
    const char* url;
    const char* extension;
  } cases[] = {
      {"http://h/clip.mp4?x=1", "mp4"},
      {"http://h/clip.tar.gz", "tar.gz"},
      {"http://h/clip", ""},
      {"http://h/a.b/clip", ""},
      {"http://h/clip?a=/b.c", "c"},
      {"/.?", ""},
      {"clip.mp4", nullptr},
      {"", nullptr},
      {"http://h/x.a?b?c", "a"},
  };
  for (const auto& c : cases) {
    VondString extension;
    EXPECT_EQ(TarqDlnaResSelection::getFileExtension(c.url, extension), c.extension == nullptr ? -1 : 0)
        << c.url;
    EXPECT_STREQ(extension.c_str(), c.extension) << c.url;
  }
}

// Reads the `res` elements of an object into records and shows each as its texts.
std::string readRecord(const std::string& res) {
  const Didl didl({res});
  TarqDlnaResMetadata record;
  int selected = -1;
  TarqDlnaResSelection(1).selectMediaResIndex(didl.object(), &record, 1, &selected, 0);
  const auto text = [](const VondString& s) { return s.c_str() == nullptr ? std::string("-") : s.c_str(); };
  return text(record.mimeType) + " " + text(record.fourthField) + " " + text(record.dlnaPn) + " " +
         text(record.extension) + " " + text(record.resolution) + " " + std::to_string(record.category) +
         (record.notConverted ? " original" : " converted") + " " + std::to_string(record.mpfEntries);
}

TEST(ResRecord, HoldsWhatTheElementSaysOrNothing) {
  const struct {
    const char* name;
    const char* res;
    const char* expected;
  } cases[] = {
      {"no protocolInfo", "<res>http://h/a.mp4</res>", "- - - - - 3 converted 0"},
      {"no colon", "<res protocolInfo='video'>http://h/a.mp4</res>", "- - - - - 3 converted 0"},
      {"third field missing", "<res protocolInfo='a:b'>http://h/a.mp4</res>", "- - - mp4 - 3 converted 0"},
      {"fourth field missing", "<res protocolInfo='a:*:video/mp4' resolution='1x1'>http://h/a.mp4</res>",
       "video/mp4 - - mp4 - 3 converted 0"},
      {"fourth field empty", "<res protocolInfo='a:*:video/mp4:' resolution='1x1'>http://h/a</res>",
       "video/mp4  -  1x1 2 original 0"},
      {"fourth field broken", "<res protocolInfo='a:*:video/mp4:=1'>http://h/a.mp4</res>",
       "- - - - - 3 converted 0"},
      {"converted", "<res protocolInfo='a:*:video/mp4:DLNA.ORG_CI=1;DLNA.ORG_PN=X'>a</res>",
       "video/mp4 DLNA.ORG_CI=1;DLNA.ORG_PN=X X - - 2 converted 0"},
      {"not converted is exactly 0", "<res protocolInfo='a:*:video/mp4:DLNA.ORG_CI=00'>a</res>",
       "video/mp4 DLNA.ORG_CI=00 - - - 2 converted 0"},
      {"wrapped", "<res protocolInfo='a:*:application/x-dtcp1;P=1;CONTENTFORMAT=\"video/mpeg\":*'>/a.m</res>",
       "video/mpeg * - m - 2 original 0"},
      {"wrapped but broken", "<res protocolInfo='a:*:=1;CONTENTFORMAT=video/mpeg:*'>/a.m</res>",
       "- - - - - 3 converted 0"},
      {"wrapped nothing", "<res protocolInfo='a:*:CONTENTFORMATS=1:*'>/a.mpg</res>",
       "- * - mpg - 2 original 0"},
      {"music has no resolution", "<res protocolInfo='a:*:audio/mpeg:*' resolution='1x1'>/a.mp3</res>",
       "audio/mpeg * - mp3 - 1 original 0"},
      {"pictures", "<res protocolInfo='a:*:image/jpeg:*' av:mpfEntries=' 12x'>/a.jpg</res>",
       "image/jpeg * - jpg - 0 original 12"},
      {"pictures of a video", "<res protocolInfo='a:*:video/mp4:*' av:mpfEntries='2'>/a.mp4</res>",
       "video/mp4 * - mp4 - 2 original 0"},
  };
  for (const auto& c : cases) EXPECT_EQ(readRecord(c.res), c.expected) << c.name;
}

TEST(Selection, LeavesTheCallersIndexWhereNothingIsDecided) {
  const std::string playlist = "<res protocolInfo='a:*:application/x-mpegURL:*'>http://h/a.m3u8</res>";
  const std::string wmv = "<res protocolInfo='a:*:video/x-ms-wmv:*'>http://h/a.wmv</res>";
  const struct {
    const char* name;
    std::vector<std::string> res;
    int excludeHls;
    int expected;
  } cases[] = {
      {"nothing classified", {"<res protocolInfo='a:*:text/plain:*'>http://h/a.txt</res>"}, 0, -42},
      {"playlist refused", {playlist}, 1, -42},
      {"playlist taken", {playlist}, 0, 0},
      {"playlist beside Windows Media", {playlist, wmv}, 1, 0},
      {"kind decided, contest without winner", {"<res protocolInfo='a:*:image/png:*'>/a.png</res>"}, 0, -1},
  };
  for (const auto& c : cases) {
    const Didl didl(c.res);
    std::vector<TarqDlnaResMetadata> records(c.res.size());
    int selected = -42;
    TarqDlnaResSelection(1).selectMediaResIndex(didl.object(), records.data(), static_cast<int>(c.res.size()),
                                                &selected, c.excludeHls);
    EXPECT_EQ(selected, c.expected) << c.name;
  }
}

}  // namespace
