#include "PlayCommand.h"

#include <cstdio>
#include <thread>
#include <vector>

#include "CommandError.h"
#include "ExplainCommandLine.h"
#include "InputFile.h"
#include "InterruptWatch.h"
#include "PlayProgress.h"
#include "PlayerSession.h"
#include "ResultText.h"
#include "TextOutput.h"

namespace {

constexpr auto kPollInterval = std::chrono::milliseconds(100);

// What to play, and the checker that knows it once it was accepted.
struct Source {
  ResourceOptions options;
  std::optional<std::string> metadata = {};
  std::unique_ptr<TarqResourceCheckerInterface> checker = {};

  const char* didl() const { return metadata ? metadata->c_str() : nullptr; }
  const TarqResourceInfo& resource() const { return *checker->GetResource(); }
};

// Ends the command: a source is refused.
struct Refusal {
  int code;
  const ResourceOptions& options;
};

std::vector<Source> readSources(const PlayOptions& options) {
  std::vector<Source> sources;
  const auto add = [&](const std::string& uri, const std::optional<std::string>& file) {
    Source& source = sources.emplace_back();
    source.options.host = options.host;
    source.options.uri = uri;
    source.options.metadataFile = file;
    source.options.region = options.region;
    if (file) source.metadata = readMetadata(*file);
  };
  add(options.uri, options.metadataFile);
  if (options.nextUri) add(*options.nextUri, options.nextMetadataFile);
  return sources;
}

void check(TarqDmrParamsInterface& params, Source& source) {
  source.checker = newChecker(params);
  const int code = source.checker->CheckResource(source.options.uri.c_str(), source.didl());
  requireNoShortage();
  if (code != kAccepted) throw Refusal{code, source.options};
}

// Returns: whether the tracks were stopped; otherwise the last one is over.
bool showTracks(PlayerSession& session, const InterruptWatch& watch) {
  PlayProgress progress;
  int track = 0;
  const auto showTrack = [&](int number) {
    if (number != track) progress.showTrack(number, session.uri());
    track = number;
  };
  showTrack(1);
  for (PlayMoment moment = session.moment(); moment.state != kStateStopped; moment = session.moment()) {
    showTrack(moment.track);
    progress.show(moment);
    if (watch.interrupted() || std::ferror(stdout) != 0) {
      session.stop();
      return true;
    }
    std::this_thread::sleep_for(kPollInterval);
  }
  return watch.interrupted();  // a terminal interrupts the program that plays, too
}

void play(TarqDmrPlayerInterface& player, const PlayOptions& options, const std::vector<Source>& sources) {
  PlayerSession session(player, options.player);
  const InterruptWatch watch(PlayerSession::killPrograms);
  session.setSource(sources[0].resource(), sources[0].didl());
  if (sources.size() > 1) session.setNextSource(sources[1].resource(), sources[1].didl());
  session.start();
  const bool stopped = showTracks(session, watch);
  if (!stopped) session.throwFailure();
  std::puts(stopped ? "stopped" : "the track is over");
}

void printUri(const std::string& uri) { std::printf("uri: %s\n", printable(uri).c_str()); }

}  // namespace

int runPlay(const PlayOptions& options) {
  std::vector<Source> sources = readSources(options);
  TarqDmrPluginManager& host = openHost(options.host);
  TarqDmrParamsInterface& params = *host.GetParams();
  params.SetCurrentRegion(options.region);
  try {
    for (Source& source : sources) check(params, source);
    play(*host.GetPlayer(), options, sources);
    return kExitOk;
  } catch (const Refusal& refusal) {
    std::printf("refused (%d): %s\n", refusal.code, describe(refusal.code));
    printUri(refusal.options.uri);
    std::printf("why: %s\n", explainCommandLine(refusal.options, refusal.code).c_str());
  } catch (const PlayerFailure& failure) {
    std::puts(printable(failure.words).c_str());
    printUri(failure.uri);
  }
  return kExitRefused;
}
