#ifndef TARQ_LIBRARY_BROWSER_H_
#define TARQ_LIBRARY_BROWSER_H_

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "ContentDirectory.h"
#include "DidlPage.h"

// Whoever wants to know what a library holds.
class LibraryReader {
 public:
  virtual ~LibraryReader() = default;

  virtual void enter(const LibraryContainer& container) = 0;
  // Returns: false when it wants no more.
  virtual bool take(LibraryItem item) = 0;
  // What is wrong with a container. The same thing has the same words in every container.
  virtual void note(const LibraryContainer& container, const std::string& words) = 0;
};

// Walks through a media server's containers and hands out every item, whatever the server does: it may tell wrong
// numbers, list a container in itself, or never come to an end. What fails is asked for once more, then noted, and
// the walk goes on.
// Threads: one.
class LibraryBrowser {
 public:
  static constexpr int kMaxDepth = 100;
  static constexpr size_t kMaxContainers = 100'000;
  static constexpr int64_t kMaxObjects = 250'000;  // of one container

  LibraryBrowser(ContentDirectory& directory, LibraryReader& reader)
      : directory_(directory), reader_(reader) {}

  void run(const LibraryContainer& top);
  size_t containers() const { return seen_.size(); }

 private:
  struct Place {
    LibraryContainer container;
    int depth;
  };
  struct Walk;  // through one container
  struct Page {
    BrowsePage told;
    DidlPage didl;
  };

  void readContainer(const Place& place);
  bool readPage(Walk& walk);
  bool takeBrokenPage(Walk& walk, Page page);
  bool takeObjects(Walk& walk, DidlPage page);
  bool goOnAfter(Walk& walk, const HttpError& error);
  Page fetchTwice(const Walk& walk);
  Page fetch(const Walk& walk);
  void noteLies(Walk& walk, const Page& page);
  void addContainers(const Walk& walk, std::vector<LibraryContainer> found);
  std::string systemUpdateId();

  ContentDirectory& directory_;
  LibraryReader& reader_;
  std::vector<Place> pending_;  // the next one last
  std::unordered_set<std::string> seen_;
  int64_t pageSize_ = 200;
  int unanswered_ = 0;  // containers, one after the other
  bool isOver_ = false;
};

#endif  // TARQ_LIBRARY_BROWSER_H_
