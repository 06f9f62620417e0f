#include <arpa/inet.h>

#include <memory>
#include <string>

#include "StringRows.h"
#include "Utf8Decoder.h"
#include "VondMimeType.h"
#include "VondNameValueList.h"
#include "VondProtocolInfo.h"
#include "VondResolution.h"
#include "VondString.h"
#include "VondURL.h"
#include "ZylInet.h"

namespace {

std::string shown(const char* string) { return string != nullptr ? string : "absent"; }

TEST(VondString, KeepsEveryLengthThroughCopyMoveAndSelfAssignment) {
  for (const size_t length : {0u, 1u, 22u, 23u, 24u, 25u, 1000u}) {
    const std::string text(length, 'x');
    VondString string(text.c_str());
    VondString copy(string);
    VondString moved(std::move(string));
    EXPECT_EQ(string.c_str(), nullptr);  // NOLINT: what moving leaves behind is promised
    EXPECT_TRUE(moved == copy && moved.length() == length);
    copy = copy.c_str() + length / 2;
    EXPECT_EQ(copy.c_str(), text.substr(length / 2));
    VondString& self = moved;
    moved = self;
    moved = std::move(self);
    copy = std::move(moved);
    EXPECT_EQ(copy.append("").append("yz").append(nullptr).c_str(), text + "yz");
    EXPECT_TRUE(moved == VondString() && !(moved == VondString("")));  // NOLINT
  }
}

const auto kProtocolInfos =
    stringRows({"http-get:*:a/b:PN=MP3 => absent|http-get|*|a/b|PN=MP3|absent|",
                ": => absent|||absent|absent|absent|", "a:b:c:d:e:: => absent|a|b|c|d:e::|absent|",
                "a:b:c: => absent|a|b|c||absent|", "http-get => invalid", " => invalid"});
TEST_ROWS(VondProtocolInfo, Fields, kProtocolInfos) {
  const VondProtocolInfo info(row.input.c_str());
  std::string all = info.IsValid() ? "" : "invalid";
  for (int n = 0; info.IsValid() && n <= 5; ++n) all += shown(info.GetField(n)) + "|";
  EXPECT_EQ(all, row.outcome);
}

const auto kLists = stringRows({"n=1 => 1",         "m=0; n = 1 ; => 1", ";;\t;\r\n n\n=\t1 => 1",
                                "n=1;n=2 => 1",     "n;n=2 => absent",   "N=1 => absent",
                                "n=  => ",          "n=a=b= => a=b=",    "nn=2;mn=3;n=1 => 1",
                                "n=\"a b\" => a b", "n= \"\" ;m => ",    "n=\"\"a\"\" => \"a\"",
                                "n=\" => \"",       "n=\"a => \"a",      "n=\" a \" =>  a ",
                                "* => absent",      " => absent",        " ;   => absent",
                                "=1 => invalid",    "n=1; =2 => invalid"});
TEST_ROWS(VondNameValueList, ValueOfN, kLists) {
  const VondPI4thField list(row.input.c_str());
  EXPECT_EQ(list.IsValid() ? shown(list.GetParameter("n")) : "invalid", row.outcome);
  EXPECT_TRUE(list.GetParameter(nullptr) == nullptr && list.GetParameter("*") == nullptr);
}

TEST(Parsers, TakeLongStringsAndNull) {
  for (const size_t length : {126u, 127u, 128u, 1'000'000u}) {
    std::string list = "n";
    for (size_t i = 0; i < length; ++i) list += ";a";
    EXPECT_STREQ(VondNameValueList((list + ";a=b;c=d").c_str()).GetParameter("c"), "d") << length;
    EXPECT_EQ(VondProtocolInfo(("a:" + list + ":b:").c_str()).GetField(2), list) << length;
  }
  EXPECT_FALSE(VondProtocolInfo(nullptr).IsValid() || VondPI4thField(nullptr).IsValid() ||
               VondMimeType(nullptr).Match("a/b"));
  EXPECT_TRUE(VondURL::Parse(nullptr, nullptr) == nullptr && VondResolution::Parse(nullptr, 'x') == nullptr);
}

const auto kMimeTypes = stringRows(
    {"audio/mpeg => audio/mpeg AUDIO/* ", "AUDIO/mPeg => audio/mpeg AUDIO/* ",
     " \taudio/mp ; rate=44100;\x01 anything => AUDIO/* audio/mp ", "audio/mpe => AUDIO/* ",
     "image/vnd.rn-realmedia+x!#$%&'*^_`|~ => image/* ", "audiox/mpeg => ", " => invalid", "audio => invalid",
     "audio/ => invalid", "/mpeg => invalid", "audio /x => invalid", "audio/ x => invalid",
     "audio/x y => invalid", "audio/x/y => invalid", "audio/\xE4 => invalid", "audio/x\x0b => invalid"});
TEST_ROWS(VondMimeType, Matches, kMimeTypes) {
  const VondMimeType type(row.input.c_str());
  std::string patterns = type.IsValid() ? "" : "invalid";
  for (const char* pattern : {"audio/mpeg", "AUDIO/*", "audio/mp", "audi/*", "audio", "a", "", "image/*"})
    if (type.Match(pattern)) patterns += std::string(pattern) + " ";
  EXPECT_EQ(patterns, row.outcome);
  EXPECT_FALSE(type.Match(nullptr));
}

// clang-format off
const auto kUrls = stringRows({
    "http://example => http example", "HTTP://192.168.0.2:8200/a?b#c => HTTP 192.168.0.2",
    "h+1-.x://u:p@w@host:/ => h+1-.x host", "http://host?q@other => http host", "http://host#@x => http host",
    "http://host/a:b@c => http host", "http://u@[fe80::1]:80/a => http fe80::1", " => none",
    "http:/host => none", "http//host => none", "http://:80/ => none", "http://u@/ => none", "://host => none",
    "1http://host => none", "ht_p://host => none", "http://host:8o/ => none", "http://a:1:2/ => none",
    "http://[::1 => none", "http://[]/ => none", "http://[::1]x/ => none"});
// clang-format on
TEST_ROWS(VondURL, SchemeAndHost, kUrls) {
  const std::unique_ptr<VondURL> url(VondURL::Parse(row.input.c_str(), nullptr));
  EXPECT_EQ(url != nullptr ? std::string(url->GetScheme()) + " " + url->GetHost() : "none", row.outcome);
}

TEST(ZylInetAToN, TakesDottedQuadsOnly) {
  uint32_t address = 0;
  EXPECT_TRUE(ZylInetAToN("192.168.0.255", &address) == 0 && ZylInetAToN("0.0.0.0", nullptr) == 0);
  for (const char* text : {static_cast<const char*>(nullptr), "", "1.2.3", "1.2.3.", "1.2.3.4.", "1.2.3.4.5",
                           "1..2.3", "01.2.3.4", "1.2.3.256", "1.2.3.99999999999", "+1.2.3.4", " 1.2.3.4",
                           "1.2.3.4 ", "0x1.2.3.4", "1,2,3,4"})
    EXPECT_EQ(ZylInetAToN(text, &address), -1) << shown(text);
  EXPECT_EQ(address, htonl(0xC0A800FF));
}

const auto kResolutions = stringRows(
    {"1920x1080 => 1920 1080", "2147483647x01 => 2147483647 1", "2147483648x1 => invalid 0 0",
     "1x99999999999 => invalid 0 0", "1920x => invalid 0 0", " => invalid 0 0", "-1x1 => invalid 0 0",
     "1x+1 => invalid 0 0", " 1x1 => invalid 0 0", "1x1  => invalid 0 0", "1x1x1 => invalid 0 0"});
TEST_ROWS(VondResolution, Size, kResolutions) {
  const std::unique_ptr<VondResolution> size(VondResolution::Parse(row.input.c_str(), 'x'));
  std::string numbers = size->GetStatus() == 0 ? "" : "invalid ";
  numbers += std::to_string(size->GetWidth()) + " " + std::to_string(size->GetHeight());
  EXPECT_EQ(numbers, row.outcome);
}

// A digit for the bytes of each valid character, a letter for those of each that is not.
const auto kUtf8 = stringRows(
    {"\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF => 1223344",
     "\xED\x9F\xBF\xEE\x80\x80 => 33", "\x80\xBF => aa", "\xC0\xAF\xC1\xF5\xFF => aaaaa",
     "\xC3|\xE2\x82|\xF0\x9F\x98|\xF0\x9F => a1b1c1b", "\xE0\x9F\xBF => aaa", "\xF0\x8F\xBF\xBF => aaaa",
     "\xED\xA0\x80 => aaa", "\xF4\x90\x80\x80 => aaaa", "\xE2\xC3\xA9 => a2"});
TEST_ROWS(Utf8Decoder, Lengths, kUtf8) {
  std::string lengths;
  for (std::string_view rest = row.input; !rest.empty();) {
    const auto [codePoint, length, valid] = decodeUtf8(rest);
    EXPECT_TRUE(valid || codePoint == 0xFFFD);
    lengths += (valid ? "01234" : " abc")[length];
    rest.remove_prefix(length);
  }
  EXPECT_EQ(lengths, row.outcome);
}

}  // namespace
