package com.orsa.tarq.dlna;

import com.google.gson.JsonObject;
import java.util.HashMap;
import java.util.Map;
import java.util.TreeMap;

/**
 * Which entry of mpv's playlist is which source. mpv gives every entry a number, higher than all before;
 * so it can be told which events are about sources that were replaced meanwhile. Used under a lock.
 */
final class MpvPlaylist {
  private static final long NONE = -1;

  private final Map<Integer, String> requested = new HashMap<>(); // by request: not numbered yet
  private final TreeMap<Long, String> sources = new TreeMap<>(); // by number
  private long current = NONE;

  void clear() {
    requested.clear();
    sources.clear();
    current = NONE;
  }

  void request(int request, String uri) {
    requested.put(request, uri);
  }

  static long entryOf(JsonObject message) {
    return message.get("playlist_entry_id").getAsLong();
  }

  /** Takes mpv's reply to any command: that to the command which added a source has its number. */
  void number(JsonObject reply) {
    String uri = requested.remove(reply.get("request_id").getAsInt());
    if (uri != null) sources.put(entryOf(reply.getAsJsonObject("data")), uri);
  }

  /**
   * @return false: an entry from before the last {@link #clear}
   */
  boolean start(long entry) {
    boolean known = !sources.isEmpty() && entry >= sources.firstKey();
    if (known) current = entry;
    return known;
  }

  boolean hasStarted() {
    return current != NONE;
  }

  boolean isCurrent(long entry) {
    return entry == current;
  }

  /**
   * @return null: an entry that mpv added, because a source was itself a playlist
   */
  String currentSource() {
    return sources.get(current);
  }

  boolean isAtFirstSource() {
    return sources.firstKey() == current;
  }

  boolean isAtLastSource() {
    return requested.isEmpty() && sources.lastKey() == current;
  }
}
