package com.orsa.tarq.dlna;

/**
 * The player of a renderer application: every transport, rendering and connection action that a
 * control point sends calls one method of this class. Derive a class, override what your player can
 * do, and register one object of it. This class itself can do nothing and says so.
 *
 * <p><b>Threads.</b> Calls come on the host's threads, several may come at once, and each may come on
 * another thread. The control point waits for the result: do long work on a thread of your own.
 *
 * <p><b>Results.</b> A method that does something returns one of the codes below, {@link #OK} for
 * success; your own codes (100 and above) reach the host unchanged. Do not return 1 or 3: these codes
 * mean that the handler was not reached. A method that asks for something returns the value and cannot
 * report an error. No method may throw: the exception would be dropped and the result would be 0 or
 * null. ({@code tarq-dmr play} shows it first.)
 *
 * <p><b>Arguments.</b> {@code id} is the number of the transport, or of the connection for the two
 * connection methods; it is 0 in a renderer with one transport. It is unsigned: above 2147483647 it
 * arrives negative. A string is never null unless its description says so. Bytes that are not valid
 * UTF-8 arrive as U+FFFD. Every string was written by a device on the network: trust none of them.
 */
public class TarqRendererHandler {
  public static final int OK = 0;
  public static final int NOT_SUPPORTED = 2;
  public static final int OUT_OF_MEMORY = 5;
  public static final int INVALID_ARGUMENT = 9;
  public static final int INVALID_STATE = 10;

  public static final int STOPPED = 0;
  public static final int PLAYING = 1;
  public static final int PAUSED = 2;

  /**
   * Sets what to play from now on.
   *
   * @param currentUri the chosen resource; empty: nothing
   * @param currentUriMetadata DIDL-Lite of the item, or null
   * @param currentContentType MIME type, or null when only the URI is known
   */
  public int setDataSource(
      int id, String currentUri, String currentUriMetadata, String currentContentType) {
    return NOT_SUPPORTED;
  }

  /**
   * Sets what to play after the current source.
   *
   * @param nextUriMetadata DIDL-Lite of the item, or null
   */
  public int setNextDataSource(
      int id, String nextUri, String nextUriMetadata, String nextContentType) {
    return NOT_SUPPORTED;
  }

  /**
   * Plays, or resumes after a pause.
   *
   * @param playSpeed one of {@link #getPlaySpeedList}: "1" is normal, "1/2" half speed, "-2" double
   *     speed backwards
   */
  public int start(int id, String playSpeed) {
    return NOT_SUPPORTED;
  }

  public int stop(int id) {
    return NOT_SUPPORTED;
  }

  public int pause(int id) {
    return NOT_SUPPORTED;
  }

  /**
   * @param target milliseconds from the beginning of the track
   */
  public int seekTo(int id, int target) {
    return NOT_SUPPORTED;
  }

  /** Changes from the current source to the next one. */
  public int next(int id) {
    return NOT_SUPPORTED;
  }

  /**
   * @return milliseconds from the beginning of the track
   */
  public int getCurrentPosition(int id) {
    return 0;
  }

  /**
   * @return {@link #STOPPED}, {@link #PLAYING} or {@link #PAUSED}
   */
  public int getState(int id) {
    return STOPPED;
  }

  /**
   * @param channel "Master", "LF", "RF" or another UPnP channel name
   * @param volume 0 to 100
   * @param qualifier the host's second number, passed on unchanged; a simple player ignores it
   */
  public int setVolume(int id, String channel, int volume, int qualifier) {
    return NOT_SUPPORTED;
  }

  /**
   * @param qualifier the host's number, passed on unchanged; a simple player ignores it
   * @return 0 to 100
   */
  public int getVolume(int id, String channel, int qualifier) {
    return 0;
  }

  public int setMute(int id, String channel, boolean mute) {
    return NOT_SUPPORTED;
  }

  public boolean getMute(int id, String channel) {
    return false;
  }

  /**
   * @return the speeds that {@link #start} accepts, separated by commas
   */
  public String getPlaySpeedList(int id) {
    return "1";
  }

  /**
   * @return the UPnP names of the actions that are possible now ("Play,Seek"), separated by commas
   */
  public String getAction(int id) {
    return "";
  }

  /**
   * @param number the host's number of the audio stream, unsigned
   * @param selection the host's description of the stream
   */
  public int updateAudioSelection(int id, int number, String selection) {
    return NOT_SUPPORTED;
  }

  /**
   * @param number the host's number of the video stream, unsigned
   * @param selection the host's description of the stream
   */
  public int updateVideoSelection(int id, int number, String selection) {
    return NOT_SUPPORTED;
  }

  /** A media server is about to connect: the last moment to refuse it. */
  public int prepareForConnection(int id, String protocolInfo) {
    return OK;
  }

  public int connectionComplete(int id) {
    return OK;
  }

  /**
   * Sets a playlist that interrupts the current stream.
   *
   * @param number the host's number, passed on unchanged
   * @param playlist the host's first string, passed on unchanged, or null
   * @param detail the host's second string, passed on unchanged, or null
   */
  public int setBreakAuxStreamPlaylist(int id, int number, String playlist, String detail) {
    return NOT_SUPPORTED;
  }

  /**
   * Sets when the current stream is interrupted.
   *
   * @param number the host's number, passed on unchanged, unsigned
   * @param trigger the host's second number, passed on unchanged
   */
  public int setBreakAuxStreamTrigger(int id, int number, long trigger) {
    return NOT_SUPPORTED;
  }

  /**
   * @return milliseconds; 0: not known
   */
  public int getTrackDuration(int id) {
    return 0;
  }
}
