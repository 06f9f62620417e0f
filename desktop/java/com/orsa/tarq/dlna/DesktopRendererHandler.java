package com.orsa.tarq.dlna;

import java.io.IOException;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.Set;

/**
 * A handler for a workstation: it keeps the state of one transport as a real player would, whatever
 * the id. Playing is left to an external program, if one is set; without one nothing is heard, but the
 * position advances.
 *
 * <p>A track ends when its position reaches its duration, or when its program ends. Without a program,
 * a track of unknown duration plays until it is stopped. The handler notices the end of a track at the
 * next call.
 */
public final class DesktopRendererHandler extends TarqRendererHandler implements PlaybackReport {
  /** The program could not be started. */
  public static final int PROGRAM_FAILED = 100;

  private static final Map<String, Double> SPEEDS = new LinkedHashMap<>();
  private static final Set<String> CHANNELS = Set.of("Master", "LF", "RF");
  private static final int MAX_VOLUME = 100;

  static {
    SPEEDS.put("1/2", 0.5);
    SPEEDS.put("1", 1.0);
    SPEEDS.put("2", 2.0);
    SPEEDS.put("4", 4.0);
  }

  private final Map<String, Integer> volumes = new HashMap<>();
  private final Map<String, Boolean> mutes = new HashMap<>();
  private final Playhead playhead = new Playhead();
  private ExternalProgram program; // null: no program is set
  private String uri = ""; // empty: nothing to play
  private String queuedUri = ""; // empty: nothing to play next
  private String failure = ""; // empty: none
  private int track; // 1: the source that was set, 2: the one after it...
  private int durationMs; // 0: not known
  private int state = STOPPED;

  /** Plays every source that is set from now on with that program: see {@link ExternalProgram}. */
  public synchronized void setProgram(String command) {
    halt();
    uri = "";
    queuedUri = "";
    program = new ExternalProgram(command);
  }

  /** Sets the duration of the current source, which the caller knows from its metadata. */
  public synchronized void setTrackDuration(int milliseconds) {
    durationMs = Math.max(milliseconds, 0);
  }

  @Override
  public synchronized int getCurrentTrack() {
    settle();
    return track;
  }

  @Override
  public synchronized String getCurrentSource() {
    settle();
    return uri;
  }

  @Override
  public synchronized String getFailure() {
    return failure;
  }

  @Override
  public synchronized int setDataSource(
      int id, String currentUri, String currentUriMetadata, String currentContentType) {
    if (!isPlayable(currentUri)) return INVALID_ARGUMENT;
    halt();
    track = 0;
    load(currentUri);
    queuedUri = "";
    return OK;
  }

  @Override
  public synchronized int setNextDataSource(
      int id, String nextUri, String nextUriMetadata, String nextContentType) {
    if (!isPlayable(nextUri)) return INVALID_ARGUMENT;
    settle();
    queuedUri = nextUri;
    return OK;
  }

  @Override
  public synchronized int start(int id, String playSpeed) {
    settle();
    Double factor = SPEEDS.get(playSpeed);
    if (factor == null || (program != null && factor != 1)) return INVALID_ARGUMENT;
    if (uri.isEmpty()) return INVALID_STATE;
    return state == STOPPED ? begin(factor) : run(factor);
  }

  @Override
  public synchronized int stop(int id) {
    halt();
    return OK;
  }

  @Override
  public synchronized int pause(int id) {
    settle();
    if (state != PLAYING) return INVALID_STATE;
    if (program != null) return NOT_SUPPORTED;
    playhead.run(0);
    state = PAUSED;
    return OK;
  }

  @Override
  public synchronized int seekTo(int id, int target) {
    settle();
    if (state == STOPPED) return INVALID_STATE;
    if (program != null) return NOT_SUPPORTED;
    if (target < 0 || (durationMs != 0 && target > durationMs)) return INVALID_ARGUMENT;
    playhead.jump(target);
    return OK;
  }

  @Override
  public synchronized int next(int id) {
    settle();
    if (queuedUri.isEmpty()) return INVALID_STATE;
    return takeNext();
  }

  @Override
  public synchronized int getCurrentPosition(int id) {
    settle();
    return (int) Math.min(playhead.positionMs(), durationMs != 0 ? durationMs : Integer.MAX_VALUE);
  }

  @Override
  public synchronized int getState(int id) {
    settle();
    return state;
  }

  @Override
  public synchronized int setVolume(int id, String channel, int volume, int qualifier) {
    if (!CHANNELS.contains(channel) || volume < 0 || volume > MAX_VOLUME) return INVALID_ARGUMENT;
    volumes.put(channel, volume);
    return OK;
  }

  @Override
  public synchronized int getVolume(int id, String channel, int qualifier) {
    return volumes.getOrDefault(channel, MAX_VOLUME);
  }

  @Override
  public synchronized int setMute(int id, String channel, boolean mute) {
    if (!CHANNELS.contains(channel)) return INVALID_ARGUMENT;
    mutes.put(channel, mute);
    return OK;
  }

  @Override
  public synchronized boolean getMute(int id, String channel) {
    return mutes.getOrDefault(channel, false);
  }

  @Override
  public synchronized String getPlaySpeedList(int id) {
    return program != null ? "1" : String.join(",", SPEEDS.keySet());
  }

  @Override
  public synchronized String getAction(int id) {
    settle();
    if (uri.isEmpty()) return "";
    String next = queuedUri.isEmpty() ? "" : ",Next";
    if (state == STOPPED) return "Play" + next;
    if (program != null) return "Stop" + next;
    return (state == PLAYING ? "Play,Stop,Pause,Seek" : "Play,Stop,Seek") + next;
  }

  @Override
  public synchronized int getTrackDuration(int id) {
    settle();
    return durationMs;
  }

  private boolean isPlayable(String newUri) {
    boolean playable = program == null || newUri.isEmpty() || ExternalProgram.isPlayable(newUri);
    failure = playable ? "" : "only http and https URIs are handed to a program";
    return playable;
  }

  /** Goes on to the next source when the track is over; a program that failed is the end. */
  private void settle() {
    if (state != PLAYING || !isOver()) return;
    int status = program == null ? 0 : program.exitStatus();
    if (status != 0) failure = "the program ended with exit status " + status;
    if (queuedUri.isEmpty() || status != 0) {
      halt();
    } else {
      takeNext();
    }
  }

  private boolean isOver() {
    if (program != null) return !program.isRunning();
    return durationMs != 0 && playhead.positionMs() >= durationMs;
  }

  private int takeNext() {
    boolean wasPlaying = state == PLAYING;
    halt();
    load(queuedUri);
    queuedUri = "";
    return wasPlaying ? begin(1) : OK;
  }

  private void load(String newUri) {
    uri = newUri;
    ++track;
    durationMs = 0;
  }

  private int begin(double speed) {
    failure = "";
    if (program != null) {
      try {
        program.start(uri);
      } catch (IOException e) {
        failure = e.getMessage();
        return PROGRAM_FAILED;
      }
    }
    return run(speed);
  }

  private int run(double speed) {
    playhead.run(speed);
    state = PLAYING;
    return OK;
  }

  private void halt() {
    if (program != null) program.stop();
    playhead.place(0, 0);
    state = STOPPED;
  }
}
