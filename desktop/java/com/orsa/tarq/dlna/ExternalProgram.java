package com.orsa.tarq.dlna;

import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.TimeUnit;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * A program that plays one URI and then ends. No shell is involved, so a URI is always one argument.
 * The program has no input, its output is discarded, and its errors go to standard error.
 */
final class ExternalProgram {
  private static final Pattern ARGUMENT = Pattern.compile("\"([^\"]*)\"|'([^']*)'|(\\S+)");
  private static final long GRACE_MS = 2000;

  private final List<String> arguments = new ArrayList<>();
  private Process process; // null: no program was started

  /**
   * @param command program and arguments, separated by blanks; an argument with blanks is put in
   *     quotes; {uri} is replaced by the URI to play
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
    if (command.isEmpty()) throw new IOException("no program was specified");
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

  /** Ends the program, and asks the programs that it started to end. */
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
