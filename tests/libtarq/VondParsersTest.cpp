#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "OutcomeRows.h"
#include "VondMimeType.h"
#include "VondNameValueList.h"
#include "VondProtocolInfo.h"
#include "VondResolution.h"
#include "VondString.h"
#include "VondURL.h"
#include "ZylInet.h"

namespace {

std::string shown(const char* text) { return text != nullptr ? text : "absent"; }

TEST(VondString, KeepsEveryLengthThroughCopyMoveAndSelfAssignment) {
  for (const size_t length : {0u, 1u, 22u, 23u, 24u, 25u, 1000u}) {
    const std::string text(length, 'x');
    VondString string(text.c_str());
    VondString copy(string);
    VondString moved(std::move(string));
    EXPECT_EQ(string.c_str(), nullptr);  // NOLINT: what moving leaves behind is promised
    EXPECT_EQ(moved.c_str(), text);
    EXPECT_TRUE(moved == copy);
    copy = copy.c_str() + length / 2;
    EXPECT_EQ(copy.length(), length - length / 2);
    VondString& self = moved;
    moved = self;
    moved = std::move(self);
    EXPECT_EQ(moved.append("").append("yz").append(nullptr).c_str(), text + "yz");
    copy = std::move(moved);
    EXPECT_EQ(copy.c_str(), text + "yz");
  }
}

TEST(VondString, AbsentIsNotEmpty) {
  VondString absent(static_cast<const char*>(nullptr), 3);
  EXPECT_EQ(absent.c_str(), nullptr);
  EXPECT_FALSE(absent == VondString(""));
  VondString string("text that lies on the heap");
  string = absent;
  EXPECT_TRUE(string == VondString() && VondString("abc", 2) == VondString("ab"));
  EXPECT_STREQ(string.append("").c_str(), "");
}

TEST(VondProtocolInfo, SplitsAtTheFirstThreeColons) {
  const auto fields = [](const char* text) {
    const VondProtocolInfo info(text);
    std::string all = info.IsValid() ? "" : "not valid";
    for (int n = 0; n <= 5; ++n) all += info.IsValid() ? shown(info.GetField(n)) + "|" : "";
    return all;
  };
  const std::string longField(1000, 'f');
  // clang-format off
  expectOutcomes(fields, {
      "http-get:*:audio/mpeg:DLNA.ORG_PN=MP3 => absent|http-get|*|audio/mpeg|DLNA.ORG_PN=MP3|absent|",
      "a:b:c:d:e:: => absent|a|b|c|d:e::|absent|", ": => absent|||absent|absent|absent|",
      "a:b:c: => absent|a|b|c||absent|", "http-get => not valid", " => not valid",
      "a:b:" + longField + " => absent|a|b|" + longField + "|absent|absent|"});
  // clang-format on
  EXPECT_EQ(fields(nullptr), "not valid");
}

TEST(VondNameValueList, FindsTheFirstOfItsName) {
  const auto valueOfN = [](const char* text) {
    const VondPI4thField list(text);
    for (const char* name : {static_cast<const char*>(nullptr), "", "*", "n="})
      EXPECT_EQ(list.GetParameter(name), nullptr);
    return list.IsValid() ? shown(list.GetParameter("n")) : "not valid";
  };
  // clang-format off
  expectOutcomes(valueOfN, {
      "n=1 => 1", "m=0; n = 1 ; => 1", ";;\t;\r\n n\n=\t1 => 1", "n=1;n=2 => 1", "n;n=2 => absent",
      "N=1 => absent", "n= => ", "n=a=b= => a=b=", "nn=2;mn=3;n=1 => 1", "n=\"a b\" => a b",
      "n= \"\" ;m => ", "n=\"\"a\"\" => \"a\"", "n=\" => \"", "n=\"a => \"a", "n=\" a \" =>  a ",
      "* => absent", " => absent", " ;  => absent", "=1 => not valid", "n=1; =2 => not valid"});
  // clang-format on
  EXPECT_EQ(valueOfN(nullptr), "not valid");
  for (const int count : {16, 17, 33, 1'000'000}) {
    std::string text;
    for (int i = 1; i < count; ++i) text += "a;";
    EXPECT_EQ(valueOfN((text + "n=last").c_str()), "last") << count;
  }
}

TEST(VondMimeType, MatchesTypeAndSubtype) {
  const auto matched = [](const char* text) {
    const VondMimeType type(text);
    std::string patterns = type.IsValid() ? "" : "not valid";
    for (const char* pattern : {"audio/mpeg", "AUDIO/*", "audio/mp", "audi/*", "audio", "a", "", "image/*"})
      patterns += type.Match(pattern) ? pattern + std::string(" ") : "";
    EXPECT_FALSE(type.Match(nullptr));
    return patterns;
  };
  // clang-format off
  expectOutcomes(matched, {
      "audio/mpeg => audio/mpeg AUDIO/* ", "AUDIO/mPeg => audio/mpeg AUDIO/* ",
      " \taudio/mp ; rate=44100;\x01 anything => AUDIO/* audio/mp ", "audio/mpe => AUDIO/* ",
      "image/vnd.rn-realmedia+x!#$%&'*^_`|~ => image/* ", "audiox/mpeg => ", " => not valid",
      "  => not valid", "audio => not valid", "audio/ => not valid", "/mpeg => not valid",
      "audio /x => not valid", "audio/ x => not valid", "audio/x y => not valid", "audio/x/y => not valid",
      "audio/\xE4 => not valid", "audio/x,y => not valid", "audio//x => not valid", "; => not valid",
      "audio/x\x0b => not valid"});
  // clang-format on
  EXPECT_EQ(matched(nullptr), "not valid");
}

TEST(VondURL, FindsSchemeAndHost) {
  const auto schemeAndHost = [](const char* text) {
    const std::unique_ptr<VondURL> url(VondURL::Parse(text, nullptr));
    return url != nullptr ? std::string(url->GetScheme()) + " " + url->GetHost() : "none";
  };
  // clang-format off
  expectOutcomes(schemeAndHost, {
      "http://example => http example", "HTTP://192.168.0.2:8200/a?b#c => HTTP 192.168.0.2",
      "h+1-.x://u:p@w@host:/ => h+1-.x host", "http://host?q@other => http host",
      "http://host#@x => http host", "http://[fe80::1]:80/a => http fe80::1", "http://u@[::1] => http ::1",
      "http://host/a:b@c => http host", " => none", "host => none", "/a => none", "http:/host => none",
      "http//host => none", "http:// => none", "http:///a => none", "http://:80/ => none",
      "http://u@/ => none", "://host => none", "1http://host => none", "ht_p://host => none",
      "http://host:8o/ => none", "http://a:1:2/ => none", "http://[::1 => none", "http://[]/ => none",
      "http://[::1]x/ => none"});
  // clang-format on
  EXPECT_EQ(schemeAndHost(nullptr), "none");
}

TEST(ZylInetAToN, TakesDottedQuadsOnly) {
  uint32_t address = 0;
  EXPECT_EQ(ZylInetAToN("192.168.0.255", &address), 0);
  EXPECT_EQ(ZylInetAToN("0.0.0.0", nullptr), 0);
  for (const char* text : {static_cast<const char*>(nullptr), "", "1.2.3", "1.2.3.", "1.2.3.4.", "1.2.3.4.5",
                           "1..2.3", "01.2.3.4", "1.2.3.256", "1.2.3.99999999999", "+1.2.3.4", "1.2.3.-4",
                           " 1.2.3.4", "1.2.3.4 ", "1.2.3.4x", "0x1.2.3.4", "16909060", "1,2,3,4"}) {
    EXPECT_EQ(ZylInetAToN(text, &address), -1) << shown(text);
  }
  EXPECT_EQ(address, htonl(0xC0A800FF));
}

TEST(VondResolution, TakesTwoNumbersOnly) {
  const auto size = [](const char* text) {
    const std::unique_ptr<VondResolution> parsed(VondResolution::Parse(text, 'x'));
    return std::to_string(parsed->GetStatus()) + " " + std::to_string(parsed->GetWidth()) + " " +
           std::to_string(parsed->GetHeight());
  };
  // clang-format off
  expectOutcomes(size, {
      "1920x1080 => 0 1920 1080", "2147483647x01 => 0 2147483647 1", "2147483648x1 => -1 0 0",
      "1x99999999999 => -1 0 0", "1920X1080 => -1 0 0", "1920x => -1 0 0", "x1080 => -1 0 0",
      "1920 => -1 0 0", " => -1 0 0", "-1x1 => -1 0 0", "1x+1 => -1 0 0", " 1x1 => -1 0 0",
      "1x1  => -1 0 0", "1x1x1 => -1 0 0"});
  // clang-format on
  EXPECT_EQ(VondResolution::Parse(nullptr, 'x'), nullptr);
}

}  // namespace
