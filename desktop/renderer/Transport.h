#ifndef TARQ_TRANSPORT_H_
#define TARQ_TRANSPORT_H_

#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "JavaHandler.h"
#include "SourceCheck.h"
#include "TarqDmrPlayerInterface.h"

// Source: AVTransport:1, 2.2.1.
enum class TransportState { kNoMedia, kStopped, kTransitioning, kPlaying, kPaused };

struct TransportSnapshot {
  TransportState state = TransportState::kNoMedia;
  // Shown as a transition until this many polls are over, because the position itself is not told: long enough for
  // the next event.
  int seekPolls = 0;
  bool failed = false;                           // the track ended with an error
  std::shared_ptr<const CheckedSource> current;  // null: nothing to play
  std::shared_ptr<const CheckedSource> next;     // null: nothing after it
  std::string speed = "1";
  std::string actions;  // of the player, as UPnP names them, separated by commas
  int positionMs = 0;
  int durationMs = 0;  // 0: not known
};

// The transport of the renderer: what it plays, and in which state. Each operation is an action of AVTransport.
// Threads: one for all operations but `snapshot`, `playSpeeds`, `checkTicket` and `cancelChecks`.
// Errors: ActionError. A source that is refused changes nothing.
class Transport {
 public:
  // `changed` is called whenever something other than the position is new.
  Transport(TarqDmrParamsInterface& params, std::function<void()> changed);

  // Before any other operation.
  // Ownership: both must outlive the operations.
  void begin(TarqDmrPlayerInterface& player, JavaHandler& handler);

  // An empty URI takes the source away.
  void setSource(const std::string& uri, const std::string& metadata, unsigned checkTicket);
  void setNextSource(const std::string& uri, const std::string& metadata, unsigned checkTicket);
  void play(const std::string& speed);
  void pause();
  void stop();
  // Units: milliseconds from the beginning of the track.
  void seek(int targetMs);
  void next();

  // Returns: what was checked last, accepted or not; null: nothing yet.
  std::shared_ptr<const CheckedSource> lastCheck() const { return check_.last(); }

  // Asks the player how far it is: call it a few times a second, the player tells nothing by itself.
  void poll();

  // Threads: any.
  TransportSnapshot snapshot() const;
  std::string playSpeeds() const;
  unsigned checkTicket() const { return check_.ticket(); }
  void cancelChecks() { check_.cancel(); }

 private:
  bool plays() const;     // or is about to
  bool isActive() const;  // the player is at work, or paused
  void start(const std::string& speed);
  void take(std::shared_ptr<const CheckedSource> source);
  void makeCurrent(std::shared_ptr<const CheckedSource> source);
  void setNext(std::shared_ptr<const CheckedSource> source);
  void moveToNext();
  void followTrack(TransportState state);
  void endTrack();
  void readTimes();
  void readActions();
  void publish(bool worthTelling);

  SourceCheck check_;
  const std::function<void()> changed_;
  TarqDmrPlayerInterface* player_ = nullptr;
  JavaHandler* handler_ = nullptr;
  int track_ = 1;  // of the handler: the player goes on to the next source by itself
  TransportSnapshot now_;
  std::string speeds_ = "1";
  mutable std::mutex mutex_;
  TransportSnapshot published_;  // under mutex_
};

#endif  // TARQ_TRANSPORT_H_
