package com.orsa.tarq.dlna;

import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.TimeUnit;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * A program that plays one URI and ends when it is over. No shell is involved: what is in a URI stays
 * one argument. It reads nothing and its output is dropped; its errors go to standard error.
 */
final class ExternalProgram {
  private static final Pattern ARGUMENT = Pattern.compile("\"([^\"]*)\"|'([^']*)'|(\\S+)");
  private static final long GRACE_MS = 2000;

  private final List<String> arguments = new ArrayList<>();
  private Process process; // null: none was started

  /**
   * @param command program and arguments separated by blanks; quotes around a whole argument keep the
   *     blanks in it; {uri} stands for what to play
   */
  ExternalProgram(String command) {
    for (Matcher matcher = ARGUMENT.matcher(command); matcher.find(); ) {
      for (int group = 1; group <= matcher.groupCount(); ++group) {
        if (matcher.group(group) != null) arguments.add(matcher.group(group));
      }
    }
  }

  void start(String uri) throws IOException {
    List<String> command = arguments.stream().map(each -> each.replace("{uri}", uri)).toList();
    if (command.isEmpty()) throw new IOException("no program is named");
    process =
        new ProcessBuilder(command)
            .redirectInput(new File("/dev/null"))
            .redirectOutput(ProcessBuilder.Redirect.DISCARD)
            .redirectError(ProcessBuilder.Redirect.INHERIT)
            .start();
  }

  boolean isRunning() {
    return process != null && process.isAlive();
  }

  /** Returns when the program is gone; what it started itself is asked to go too. */
  void stop() {
    if (!isRunning()) return;
    process.descendants().forEach(ProcessHandle::destroy);
    process.destroy();
    try {
      if (process.waitFor(GRACE_MS, TimeUnit.MILLISECONDS)) return;
    } catch (InterruptedException e) {
      Thread.currentThread().interrupt();
    }
    process.destroyForcibly();
  }
}
