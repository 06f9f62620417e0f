package com.orsa.tarq.dlna;

import com.google.gson.JsonObject;
import java.io.IOException;
import java.util.List;

/**
 * Plays one source after the other with mpv, and knows from mpv's events how far it is. It starts mpv,
 * and a new one when mpv has ended. The next source is handed over early, so that it starts without a
 * gap.
 *
 * <p><b>Threads.</b> Any; every method holds the lock of the object, as does whoever needs several of
 * them to see one state. No method waits for mpv's answer; only starting mpv takes a moment.
 */
final class MpvPlayer implements MpvProcess.Listener {
  static final int MAX_VOLUME = 100;
  private static final int NONE = -1;

  private final MpvPlaylist playlist = new MpvPlaylist();
  private final MpvStatus status = new MpvStatus(MAX_VOLUME);
  private List<String> options = List.of();
  private MpvProcess mpv; // null: none runs
  private String source = ""; // empty: nothing to play
  private String nextSource = ""; // empty: nothing to play next
  private String failure = ""; // empty: none
  private int track; // 1: the source that was set, 2: the one after it...
  private boolean active; // playing or paused
  private boolean loaded; // mpv has opened the source: what it reports is about this one
  private boolean ending; // a source is over; if it was the last, mpv is idle after its last sound
  private int seekMs = NONE; // where to go once the source is loaded

  /** Starts mpv; {@link #failure} says whether it runs. */
  synchronized void open(List<String> mpvOptions) {
    close();
    options = mpvOptions;
    startMpv();
  }

  synchronized void close() {
    stop();
    if (mpv != null) mpv.close();
    mpv = null;
  }

  synchronized void setSource(String uri) {
    nextSource = uri;
    track = 0;
    takeNext();
  }

  synchronized void takeNext() {
    stop();
    failure = "";
    enter(nextSource);
    nextSource = "";
  }

  synchronized void setNextSource(String uri) {
    nextSource = uri;
    if (!active) return;
    mpv.send("playlist-clear"); // all but what plays
    queueNext();
  }

  /**
   * @return false: mpv does not start, see {@link #failure}
   */
  synchronized boolean start() {
    if (mpv == null && !replaceMpv()) return false;
    failure = "";
    active = true;
    setPaused(false);
    add(source, "replace");
    queueNext();
    return true;
  }

  synchronized void stop() {
    if (active && mpv != null) mpv.send("stop");
    playlist.clear();
    active = loaded = ending = false;
    seekMs = NONE;
  }

  synchronized void setPaused(boolean paused) {
    status.paused = paused;
    set("pause", paused);
  }

  /** To that position; as soon as the source is loaded, if it is not. */
  synchronized void seek(int positionMs) {
    seekMs = positionMs;
    if (!loaded) return;
    mpv.send("seek", seekMs / 1000.0, "absolute+exact");
    status.positionMs = seekMs;
    seekMs = NONE;
  }

  synchronized void setVolume(int volume) {
    status.volume = volume;
    set("volume", volume);
  }

  synchronized void setMute(boolean mute) {
    status.mute = mute;
    set("mute", mute);
  }

  synchronized String source() {
    return source;
  }

  synchronized String nextSource() {
    return nextSource;
  }

  synchronized int track() {
    return track;
  }

  synchronized String failure() {
    return failure;
  }

  synchronized void setFailure(String reason) {
    failure = reason;
  }

  synchronized boolean isActive() {
    return active;
  }

  synchronized boolean isPaused() {
    return status.paused;
  }

  synchronized boolean isSeekable() {
    return status.seekable;
  }

  synchronized int positionMs() {
    if (!active) return 0;
    return loaded ? status.positionMs : Math.max(seekMs, 0);
  }

  synchronized int durationMs() {
    return loaded ? status.durationMs : 0;
  }

  synchronized int volume() {
    return status.volume;
  }

  synchronized boolean isMute() {
    return status.mute;
  }

  @Override
  public synchronized void received(MpvProcess from, JsonObject message) {
    if (from != mpv) return;
    if (!message.has("event")) {
      playlist.number(message);
      return;
    }
    switch (message.get("event").getAsString()) {
      case "property-change" -> status.change(message.get("name").getAsString(), message.get("data"));
      case "start-file" -> startEntry(MpvPlaylist.entryOf(message));
      case "file-loaded" -> markLoaded();
      case "end-file" -> endEntry(message);
      case "idle" -> finish();
      default -> {}
    }
  }

  @Override
  public synchronized void ended(MpvProcess from, int exitStatus) {
    if (from != mpv) return;
    mpv = null;
    if (active) fail("mpv ended with exit status " + exitStatus);
  }

  private void startMpv() {
    failure = "";
    try {
      mpv = new MpvProcess(options, this);
    } catch (IOException e) {
      failure = e.getMessage();
      return;
    }
    for (String property : MpvStatus.PROPERTIES) mpv.send("observe_property", 0, property);
  }

  /** The new mpv continues with the volume of the one before. */
  private boolean replaceMpv() {
    startMpv();
    setVolume(status.volume);
    setMute(status.mute);
    return mpv != null;
  }

  private void queueNext() {
    if (!nextSource.isEmpty()) add(nextSource, "append-play");
  }

  private void add(String uri, String how) {
    playlist.request(mpv.send("loadfile", uri, how), uri);
  }

  private void set(String property, Object value) {
    if (mpv != null) mpv.send("set_property", property, value);
  }

  private void enter(String uri) {
    source = uri;
    ++track;
  }

  private void fail(String reason) {
    failure = reason;
    stop();
  }

  private void startEntry(long entry) {
    if (!playlist.start(entry)) return;
    loaded = ending = false;
    status.positionMs = 0;
    String started = playlist.currentSource();
    if (started == null) return;
    if (!playlist.isAtFirstSource()) enter(started);
    if (playlist.isAtLastSource()) nextSource = "";
  }

  private void markLoaded() {
    loaded = playlist.hasStarted();
    if (loaded && seekMs != NONE) seek(seekMs);
  }

  private void endEntry(JsonObject event) {
    if (!playlist.isCurrent(MpvPlaylist.entryOf(event))) return;
    ending = true;
    switch (event.get("reason").getAsString()) {
      case "error" -> fail(event.get("file_error").getAsString());
      case "quit" -> stop();
      default -> {}
    }
  }

  private void finish() {
    if (ending) stop();
  }
}
