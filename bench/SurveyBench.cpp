// How long a survey of 20,000 items takes, and how much memory, compared with the same browse without a check. The
// server runs in this process and has every answer ready.
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "LibraryBrowser.h"
#include "Program.h"
#include "ScriptedLibrary.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kItems = 20'000;
constexpr int kPage = 200;

// A photo as a real server describes it, with four sizes.
std::string realItem(int number) {
  const std::string id = std::to_string(number);
  std::string didl = "<item id=\"64$2$" + id + "\" parentID=\"64$2\" restricted=\"1\"><dc:title>Picture " +
                     id +
                     " &amp;amp; more</dc:title><upnp:class>object.item.imageItem.photo</upnp:class>"
                     "<dc:date>2011-05-14T12:00:00</dc:date>";
  for (const char* size : {"LRG", "MED", "SM", "TN"}) {
    didl +=
        "<res size=\"123456\" resolution=\"4000x3000\" "
        "protocolInfo=\"http-get:*:image/jpeg:DLNA.ORG_PN=JPEG_" +
        std::string(size) +
        ";DLNA.ORG_OP=01;DLNA.ORG_CI=0;DLNA.ORG_FLAGS=00F00000000000000000000000000000\">"
        "http://192.168.0.7:8200/MediaItems/" +
        id + "." + size + ".jpg</res>";
  }
  return didl + "</item>";
}

std::vector<std::string> allPages() {
  std::vector<std::string> pages;
  for (int start = 0; start <= kItems; start += kPage) {
    Objects objects;
    for (int i = start; i < std::min(kItems, start + kPage); ++i, ++objects.count)
      objects.didl += realItem(i);
    pages.push_back(browseAnswer(objects, kItems));
  }
  return pages;
}

class Counter : public LibraryReader {
 public:
  void enter(const LibraryContainer&) override {}
  bool take(LibraryItem) override { return ++items_ > 0; }
  void note(const LibraryContainer&, const std::string&) override { std::abort(); }
  int items() const { return items_; }

 private:
  int items_ = 0;
};

int browse(const std::string& url) {
  HttpClient http;
  const ServerDescription server = describeServer(http, url);
  ContentDirectory directory(http, server);
  Counter counter;
  LibraryBrowser(directory, counter).run({"0", "all"});
  return counter.items();
}

template <class Work>
double secondsOf(Work work) {
  const auto begun = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - begun).count();
}

}  // namespace

int main() {
  const std::vector<std::string> pages = allPages();
  // A server needs a moment for an answer: `waits` milliseconds.
  for (const int waits : {0, 10, 50}) {
    const ScriptedLibrary library([&](const BrowseRequest& request) {
      ::usleep(static_cast<useconds_t>(waits) * 1000);
      return pages[static_cast<size_t>(request.start / kPage)];
    });
    int items = 0;
    const double bare = secondsOf([&] { items = browse(library.url()); });
    Outcome outcome{};
    const double survey = secondsOf([&] { outcome = runProgram({"survey", library.url(), "--json"}); });
    std::printf("answers after %2d ms: browsed in %.2f s, surveyed in %.2f s, %.2f times, with %ld MiB\n",
                waits, bare, survey, survey / bare, outcome.maxResidentKiB / 1024);
    if (items != kItems || outcome.out.find("\"items\":20000") == std::string::npos) return EXIT_FAILURE;
  }
}
