package com.orsa.tarq.dlna;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Set;
import java.util.concurrent.ConcurrentHashMap;

/** What an application developer wants to know of an exception that a handler threw. */
final class HandlerExceptions {
  private static final int TOP_FRAMES = 5;
  private static final int MOST_LINES = 20;
  private static final Set<String> SEEN = ConcurrentHashMap.newKeySet();

  /**
   * Called through JNI.
   *
   * @return the exception and its causes, each with the frames at the top of its stack; empty: JNI
   *     itself threw it, or that class of exception came from that line before
   */
  static String[] describe(Throwable thrown) {
    StackTraceElement[] frames = thrown.getStackTrace();
    boolean isFromJni = frames.length == 0 && thrown.getCause() == null;
    String origin = thrown.getClass().getName() + (frames.length == 0 ? "" : frames[0]);
    if (isFromJni || !SEEN.add(origin)) return new String[0];
    List<String> lines = new ArrayList<>();
    for (Throwable each = thrown; each != null && lines.size() < MOST_LINES; each = each.getCause()) {
      lines.add(each == thrown ? each.toString() : "caused by " + each);
      Arrays.stream(each.getStackTrace()).limit(TOP_FRAMES).forEach(at -> lines.add("  at " + at));
    }
    return lines.toArray(String[]::new);
  }
}
