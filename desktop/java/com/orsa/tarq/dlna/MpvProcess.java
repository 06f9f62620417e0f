package com.orsa.tarq.dlna;

import com.google.gson.Gson;
import com.google.gson.JsonObject;
import com.google.gson.JsonParseException;
import com.google.gson.JsonParser;
import java.io.BufferedReader;
import java.io.IOException;
import java.net.UnixDomainSocketAddress;
import java.nio.ByteBuffer;
import java.nio.channels.Channels;
import java.nio.channels.SocketChannel;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.locks.LockSupport;

/**
 * A running mpv, and the connection on which it takes commands and reports replies and events, each
 * one line of JSON.
 *
 * <p>It ends when its standard input ends, so it does not outlive this process, even when this process
 * is killed. Its socket and the folder around it are deleted as soon as the connection exists.
 *
 * <p><b>Threads.</b> Any may use it. The listener is called on one thread of this object, which does
 * not keep the VM alive, and not before the constructor is done.
 */
final class MpvProcess {
  interface Listener {
    void received(MpvProcess mpv, JsonObject message);

    /** The last call: mpv has ended. */
    void ended(MpvProcess mpv, int exitStatus);
  }

  private static final long START_LIMIT_NS = TimeUnit.SECONDS.toNanos(10);
  private static final long RETRY_NS = TimeUnit.MILLISECONDS.toNanos(10);
  private static final long GRACE_MS = 2000;
  private static final int KILLED = 137; // by SIGKILL
  private static final Gson GSON = new Gson();

  private final Process process;
  private final SocketChannel connection;
  private int requests;

  /** Waits until mpv takes commands. */
  MpvProcess(List<String> options, Listener listener) throws IOException {
    Path folder = Files.createTempDirectory("tarq-mpv-"); // only this user may enter it
    Path socket = folder.resolve("socket");
    try {
      process = new ProcessBuilder(commandLine(socket, options)).redirectErrorStream(true).start();
      connection = connect(UnixDomainSocketAddress.of(socket));
    } finally {
      Files.deleteIfExists(socket);
      Files.delete(folder);
    }
    startDaemon("mpv-errors", this::passErrorsOn);
    startDaemon("mpv-events", () -> listen(listener));
  }

  private static List<String> commandLine(Path socket, List<String> options) {
    List<String> words = new ArrayList<>(List.of("mpv", "--idle", "--no-config"));
    words.addAll(List.of("--load-scripts=no", "--ytdl=no")); // a source is a file, not a web page
    words.add("--input-ipc-server=" + socket);
    words.addAll(List.of("--input-terminal=no", "--input-ipc-client=fd://0")); // ends with its input
    words.add("--msg-level=all=fatal");
    words.addAll(List.of("--prefetch-playlist=yes", "--image-display-duration=inf"));
    words.add("--volume-max=100");
    words.addAll(options);
    return words;
  }

  private SocketChannel connect(UnixDomainSocketAddress address) throws IOException {
    for (long start = System.nanoTime(); ; LockSupport.parkNanos(RETRY_NS)) {
      try {
        return SocketChannel.open(address);
      } catch (IOException e) {
        if (!process.isAlive()) throw new IOException(lastWords(), e);
        if (System.nanoTime() - start < START_LIMIT_NS) continue;
        process.destroyForcibly();
        throw new IOException("mpv does not accept a connection", e);
      }
    }
  }

  /** What is wrong with its options, as a rule. */
  private String lastWords() throws IOException {
    String words = new String(process.getInputStream().readAllBytes(), StandardCharsets.UTF_8);
    return "mpv ended with exit status " + process.exitValue() + ": " + words.strip();
  }

  private static void startDaemon(String name, Runnable task) {
    Thread thread = new Thread(task, name);
    thread.setDaemon(true);
    thread.start();
  }

  /** Standard output belongs to the results of the program that this VM is part of. */
  private void passErrorsOn() {
    try {
      process.getInputStream().transferTo(System.err);
    } catch (IOException e) {
      // mpv has ended.
    }
  }

  private void listen(Listener listener) {
    try (BufferedReader lines =
        new BufferedReader(Channels.newReader(connection, StandardCharsets.UTF_8))) {
      for (String line; (line = lines.readLine()) != null; ) {
        listener.received(this, JsonParser.parseString(line).getAsJsonObject());
      }
    } catch (IOException | JsonParseException | IllegalStateException e) {
      // Without a connection this mpv is useless.
    }
    listener.ended(this, close());
  }

  /**
   * Sends a command; what comes of it is reported to the listener.
   *
   * @return the request_id of its reply
   */
  synchronized int send(Object... command) {
    String line = GSON.toJson(Map.of("command", command, "request_id", ++requests)) + "\n";
    try {
      for (ByteBuffer rest = StandardCharsets.UTF_8.encode(line); rest.hasRemaining(); ) {
        connection.write(rest);
      }
    } catch (IOException e) {
      // The listener is told of the end.
    }
    return requests;
  }

  /**
   * Ends mpv, if it has not ended by itself.
   *
   * @return its exit status
   */
  int close() {
    try {
      process.getOutputStream().close();
      if (!process.waitFor(GRACE_MS, TimeUnit.MILLISECONDS)) process.destroyForcibly();
      connection.close();
      return process.waitFor();
    } catch (InterruptedException e) {
      Thread.currentThread().interrupt();
    } catch (IOException e) {
      // Its end is forced.
    }
    process.destroyForcibly();
    return KILLED;
  }
}
