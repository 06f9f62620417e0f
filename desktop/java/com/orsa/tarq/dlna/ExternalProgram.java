package com.orsa.tarq.dlna;

import java.io.File;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;
import java.util.Set;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.TimeUnit;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import java.util.stream.Stream;

/**
 * A program that plays one URI and then ends. No shell is involved, so a URI is always one argument.
 * The program has no input, its output is discarded, and its errors go to standard error. It does not
 * outlive the Java VM.
 */
final class ExternalProgram {
  private static final Pattern ARGUMENT = Pattern.compile("\"([^\"]*)\"|'([^']*)'|(\\S+)");
  private static final Pattern PLAYABLE = Pattern.compile("(?i)https?://.*", Pattern.DOTALL);
  private static final long GRACE_NS = TimeUnit.SECONDS.toNanos(2);
  private static final long POLL_MS = 10;
  // A program whose parent has ended is not a descendant of this process any more.
  private static final Set<ProcessHandle> ENDING = ConcurrentHashMap.newKeySet();

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
    Runtime.getRuntime().addShutdownHook(new Thread(this::stop));
  }

  /**
   * Everything else is kept from a program, which would open a local file, or take the URI for an
   * option.
   */
  static boolean isPlayable(String uri) {
    return PLAYABLE.matcher(uri).matches();
  }

  /** Ends at once whatever this process has started, also while another thread is in {@link #stop}. */
  static void killAll() {
    Stream.concat(ProcessHandle.current().descendants(), ENDING.stream())
        .forEach(ProcessHandle::destroyForcibly);
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

  /** The exit status of the program that ended; 128 and the number of a signal that ended it. */
  int exitStatus() {
    return process.exitValue();
  }

  /** Ends the program and those that it started; whichever does not end when asked is killed. */
  void stop() {
    if (!isRunning()) return;
    List<ProcessHandle> all =
        Stream.concat(process.descendants(), Stream.of(process.toHandle())).toList();
    ENDING.addAll(all);
    all.forEach(ProcessHandle::destroy);
    awaitEnd(all);
    all.forEach(ProcessHandle::destroyForcibly);
    awaitEnd(all);
    ENDING.removeAll(all);
  }

  /** But not for long. */
  private static void awaitEnd(List<ProcessHandle> processes) {
    long begin = System.nanoTime();
    try {
      while (processes.stream().anyMatch(ExternalProgram::isAtWork)) {
        if (System.nanoTime() - begin > GRACE_NS) return;
        Thread.sleep(POLL_MS);
      }
    } catch (InterruptedException e) {
      Thread.currentThread().interrupt();
    }
  }

  /** One that ended counts as alive until its parent takes notice, but has no command any more. */
  private static boolean isAtWork(ProcessHandle handle) {
    return handle.isAlive() && handle.info().command().isPresent();
  }
}
