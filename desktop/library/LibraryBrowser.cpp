#include "LibraryBrowser.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "Utf8.h"

namespace {

constexpr int kMaxUnanswered = 3;
constexpr int kMaxFailures = 3;  // of one container, one after the other

std::string withoutInvalidBytes(std::string_view string) {
  std::string valid;
  while (!string.empty()) {
    const Utf8Piece piece = takePiece(string);
    valid += piece.kind == Utf8Piece::Kind::kInvalid ? "\uFFFD" : piece.bytes;
  }
  return valid;
}

}  // namespace

struct LibraryBrowser::Walk {
  const Place& place;
  int64_t start = 0;
  int64_t total = -1;
  std::string updateId = {};
  int failures = 0;
  std::unordered_set<size_t> ids = {};  // hashes: there may be many
  std::vector<LibraryContainer> children = {};

  // Some servers answer with an error what is past their end.
  bool isEndedBy(const HttpError& error) const {
    return total > 0 && start >= total && error.kind == HttpError::Kind::kFailed;
  }
};

void LibraryBrowser::run(const LibraryContainer& top) {
  const std::string before = systemUpdateId();
  seen_.insert(top.id);
  pending_.push_back({top, 0});
  while (!pending_.empty() && !isOver_) {
    const Place place = std::move(pending_.back());
    pending_.pop_back();
    readContainer(place);
  }
  if (!isOver_ && systemUpdateId() != before) reader_.note(top, "the library changed while it was read");
}

std::string LibraryBrowser::systemUpdateId() {
  try {
    return directory_.systemUpdateId();
  } catch (const HttpError&) {
    return {};  // the numbers of the containers are watched, too
  }
}

void LibraryBrowser::readContainer(const Place& place) {
  reader_.enter(place.container);
  Walk walk{.place = place};
  while (!isOver_ && readPage(walk)) {
    if (walk.start < kMaxObjects) continue;
    reader_.note(place.container,
                 "it has more than " + std::to_string(kMaxObjects) + " objects; the rest is left out");
    break;
  }
  addContainers(walk, std::move(walk.children));
}

// Only an empty page is the end: servers tell too small a total, or send fewer objects than they were asked for.
// Returns: false when this was the last page.
bool LibraryBrowser::readPage(Walk& walk) try {
  Page page = fetchTwice(walk);
  const auto size = static_cast<int64_t>(page.didl.size());
  noteLies(walk, page);
  unanswered_ = 0;
  if (!page.didl.problem.empty()) return takeBrokenPage(walk, std::move(page));
  walk.failures = 0;
  walk.start += size;
  if (takeObjects(walk, std::move(page.didl)) || isOver_) return true;
  if (size > 0) reader_.note(walk.place.container, "it repeats its objects; they are taken once");
  if (size == 0 && walk.total > 0 && walk.total != walk.start)
    reader_.note(walk.place.container, "it has another number of objects than TotalMatches says");
  return false;
} catch (const HttpError& error) {
  return goOnAfter(walk, error);
}

// What comes before the fault is as good as ever.
bool LibraryBrowser::takeBrokenPage(Walk& walk, Page page) {
  walk.start += std::max(static_cast<int64_t>(page.didl.size()), page.told.returned);
  takeObjects(walk, std::move(page.didl));
  return page.told.returned > 0 && ++walk.failures < kMaxFailures;
}

// An answer that is too large is asked for in smaller pieces instead.
LibraryBrowser::Page LibraryBrowser::fetchTwice(const Walk& walk) {
  for (bool isSecond = false;; isSecond = true) {
    try {
      Page page = fetch(walk);
      if (page.didl.problem.empty() || isSecond) return page;
    } catch (const HttpError& error) {
      const bool shrinks = error.kind == HttpError::Kind::kTooLarge && pageSize_ > 1;
      if (!shrinks && (isSecond || walk.isEndedBy(error))) throw;
      if (shrinks) pageSize_ /= 2;
    }
  }
}

LibraryBrowser::Page LibraryBrowser::fetch(const Walk& walk) {
  Page page{.told = directory_.browse(walk.place.container.id, walk.start, pageSize_), .didl = {}};
  std::string& didl = page.told.didl;
  if (!isValidUtf8(didl)) {
    reader_.note(walk.place.container, "it sends bytes that are not valid UTF-8");
    didl = withoutInvalidBytes(didl);
  }
  if (!didl.empty()) page.didl = readDidlPage(didl);
  return page;
}

// Returns: whether the container has more to ask for.
bool LibraryBrowser::goOnAfter(Walk& walk, const HttpError& error) {
  if (walk.isEndedBy(error)) return false;
  reader_.note(walk.place.container, std::string("it cannot be read: ") + error.what());
  if (error.kind == HttpError::Kind::kNoAnswer) {
    isOver_ = ++unanswered_ == kMaxUnanswered;
    if (isOver_)
      reader_.note(walk.place.container, "the server does not answer any more; the rest is left out");
    return false;
  }
  walk.start += pageSize_;
  return walk.start < walk.total && ++walk.failures < kMaxFailures;
}

void LibraryBrowser::noteLies(Walk& walk, const Page& page) {
  const LibraryContainer& container = walk.place.container;
  const auto& [told, didl] = page;
  if (!didl.problem.empty()) {
    reader_.note(container, didl.problem);
  } else if (told.returned != static_cast<int64_t>(didl.size())) {
    reader_.note(container, "it sends another number of objects than NumberReturned says");
  }
  if (!walk.updateId.empty() && told.updateId != walk.updateId)
    reader_.note(container, "it changed while it was read");
  walk.updateId = told.updateId;
  walk.total = told.total;
}

// Returns: whether there was anything new in it.
bool LibraryBrowser::takeObjects(Walk& walk, DidlPage page) {
  bool hasNews = false;
  const auto isNew = [&](const std::string& id) {
    const bool added = id.empty() || walk.ids.insert(std::hash<std::string>()(id)).second;
    hasNews |= added;
    return added;
  };
  for (LibraryContainer& child : page.containers)
    if (isNew(child.id)) walk.children.push_back(std::move(child));
  for (LibraryItem& item : page.items) {
    if (!isNew(item.id)) continue;
    isOver_ = !reader_.take(std::move(item));
    if (isOver_) return false;
  }
  return hasNews;
}

void LibraryBrowser::addContainers(const Walk& walk, std::vector<LibraryContainer> found) {
  const LibraryContainer& container = walk.place.container;
  if (!found.empty() && walk.place.depth == kMaxDepth)
    return reader_.note(container,
                        "it is nested " + std::to_string(kMaxDepth) + " deep; what it holds is left out");
  std::vector<Place> places;
  for (LibraryContainer& child : found) {
    if (seen_.size() == kMaxContainers)
      return reader_.note(container, "there are more than " + std::to_string(kMaxContainers) +
                                         " containers; the rest is left out");
    if (seen_.insert(child.id).second) places.push_back({std::move(child), walk.place.depth + 1});
  }
  std::move(places.rbegin(), places.rend(), std::back_inserter(pending_));
}
