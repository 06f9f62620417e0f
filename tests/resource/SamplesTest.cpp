// What the renderer makes of each item of a real media server, whose answers a local server plays back.
#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

#include <fstream>
#include <map>
#include <regex>
#include <string>

#include "Checker.h"
#include "RawHttpServer.h"

namespace {

constexpr char kRecordedServer[] = "http://127.0.0.1:8200";

// The recorded answers, by "path mode".
std::map<std::string, std::string> recordedAnswers() {
  std::map<std::string, std::string> answers;
  std::ifstream file(TARQ_TEST_DATA "/minidlna.heads.json");
  rapidjson::IStreamWrapper in(file);
  rapidjson::Document document;
  document.ParseStream(in);
  for (const auto& entry : document.GetArray()) {
    const std::string path = std::string(entry["url"].GetString()).substr(sizeof kRecordedServer - 1);
    for (const char* mode : {"Streaming", "Interactive"}) {
      const auto& answer = entry["answers"][("features+" + std::string(mode)).c_str()];
      std::string text = "HTTP/1.1 " + std::to_string(answer["status"].GetInt()) + " X\r\n";
      for (const auto& header : answer["headers"].GetArray()) {
        text += std::string(header[0].GetString()) + ": " + header[1].GetString() + "\r\n";
      }
      answers[path + " " + mode] = text + "\r\n";
    }
  }
  return answers;
}

// clang-format off
const std::map<std::string, std::string> kExpectedByFile = {
    {"23.flac", "FLAC audio/x-flac 0"}, {"30.mp3", "MP3 audio/mpeg 0"}, {"31.dat", "OggVorbis audio/ogg 0"},
    {"29.m4a", "AUDIO_MPEG4 audio/mp4 0"},  // the AAC profile is unknown; the type is enough
    {"32.wav", "WAVE audio/x-wav 0"}, {"33.wma", "WMA audio/x-ms-wma 0"}, {"34.m4a", "AUDIO_MPEG4 audio/mp4 0"},
    {"36.jpg", "JPEG image/jpeg 0"},  // 4000x3000 is the nearest above full HD
    {"40.jpg", "JPEG image/jpeg 0"},  // the thumbnail is never chosen
    {"41.jpg", "JPEG image/jpeg 0"},
    // "mp4" in the URI: accepted without a look at the elements.
    {"43.mp4", "- video/* -1"}, {"44.mp4", "- video/* -1"}, {"50.mp4", "- video/* -1"},
    {"45.mpg", "55106"},  // unknown profile, "mpg" beside it does not help
    {"46.mpg", "MPEG1 video/mpeg 0"}, {"47.mpg", "MPEG2_PS video/mpeg 0"}, {"48.mpg", "MPEG2_PS video/mpeg 0"},
    {"49.mpg", "MPEG2_TS video/mpeg 0"}, {"51.avi", "AVI_Unknown video/x-msvideo 0"},
    {"52.mkv", "MKV video/x-matroska 0"}, {"53.mov", "MOV video/quicktime 0"}, {"54.wmv", "WMV video/x-ms-wmv 0"},
};
// clang-format on

TEST(Samples, ComeOutAsTheRendererPlaysThem) {
  const std::map<std::string, std::string> answers = recordedAnswers();
  RawHttpServer server([&](RawHttpServer::Connection& client) {
    const bool interactive = client.request().find("Interactive") != std::string::npos;
    client.send(answers.at(client.path() + (interactive ? " Interactive" : " Streaming")));
  });

  std::ifstream lines(TARQ_TEST_DATA "/minidlna.ndjson");
  size_t items = 0;
  for (std::string line; std::getline(lines, line); ++items) {
    rapidjson::Document item;
    item.Parse(std::regex_replace(line, std::regex(kRecordedServer), server.url("")).c_str());
    const std::string uri = item["uri"].GetString();
    const auto checker = newChecker();
    const int code = checker->CheckResource(uri.c_str(), item["metadata"].GetString());
    std::string outcome = std::to_string(code);
    if (code == 0) {
      const TarqResourceInfo& info = *checker->GetResource();
      outcome = (info.contentFormat == nullptr ? std::string("-") : info.contentFormat->c_str()) +
                std::string(" ") + info.mimeType + " " + std::to_string(info.resIndex);
    }
    EXPECT_EQ(outcome, kExpectedByFile.at(uri.substr(uri.rfind('/') + 1))) << uri;
  }
  EXPECT_EQ(items, kExpectedByFile.size());
}

}  // namespace
