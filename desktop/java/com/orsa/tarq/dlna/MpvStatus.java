package com.orsa.tarq.dlna;

import com.google.gson.JsonElement;
import java.util.List;

/** mpv's properties as it last reported them. Used under a lock. */
final class MpvStatus {
  static final List<String> PROPERTIES =
      List.of("pause", "time-pos", "duration", "seekable", "volume", "mute");

  boolean paused;
  boolean seekable = true; // as long as mpv cannot know
  boolean mute;
  int positionMs;
  int durationMs; // 0: not known
  int volume;

  MpvStatus(int volume) {
    this.volume = volume;
  }

  /**
   * @param value null: the property has no value now
   */
  void change(String property, JsonElement value) {
    switch (property) {
      case "pause" -> paused = isTrue(value);
      case "time-pos" -> positionMs = milliseconds(value);
      case "duration" -> durationMs = milliseconds(value);
      case "seekable" -> seekable = value == null || value.getAsBoolean();
      case "volume" -> volume = value == null ? volume : (int) Math.round(value.getAsDouble());
      case "mute" -> mute = isTrue(value);
      default -> {}
    }
  }

  private static boolean isTrue(JsonElement value) {
    return value != null && value.getAsBoolean();
  }

  private static int milliseconds(JsonElement seconds) {
    return seconds == null ? 0 : (int) Math.max(Math.round(seconds.getAsDouble() * 1000), 0);
  }
}
