package com.orsa.tarq.dlna;

/**
 * The player of a renderer application: every transport, rendering and connection action that a
 * control point sends ends in a call of one method here. Derive a class from this one, override what
 * your player can do, and register one object of it.
 *
 * <p><b>Threads.</b> Calls come on the host's threads, several may come at once, and a thread need
 * not be the one of the call before. The control point waits for the answer: hand long work to a
 * thread of your own.
 *
 * <p><b>Answers.</b> Methods that do something answer one of the codes below, {@link #OK} for success;
 * a code of your own (from 100 up) reaches the host unchanged. Codes 1 and 3 mean that the handler was
 * not reached at all; do not answer them. Methods that ask for something answer the value, and have no
 * way to fail. No method may throw: the exception would be dropped and the answer be 0 or null.
 *
 * <p><b>Arguments.</b> {@code id} numbers the transport, or for the two connection methods the
 * connection; a renderer with one transport gets 0. It is an unsigned number: above 2147483647 it
 * arrives negative. Texts may be null only where it says so. Bytes that were no valid UTF-8 arrive as
 * U+FFFD. All texts were written by a device on the network: trust none of them.
 *
 * <p>As it stands the class is a player that can do nothing and says so.
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
   * What to play from now on, instead of what was there before.
   *
   * @param uri the chosen resource; empty: nothing
   * @param metadata DIDL-Lite of the item, or null
   * @param contentType MIME type, or null when nothing is known but the URI
   */
  public int setDataSource(int id, String uri, String metadata, String contentType) {
    return NOT_SUPPORTED;
  }

  /**
   * What to play after the current source has ended.
   *
   * @param metadata DIDL-Lite of the item, or null
   */
  public int setNextDataSource(int id, String uri, String metadata, String contentType) {
    return NOT_SUPPORTED;
  }

  /**
   * Plays, or goes on after a pause.
   *
   * @param speed one of {@link #getPlaySpeedList}: "1" is normal, "1/2" half of it, "-2" twice backwards
   */
  public int start(int id, String speed) {
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

  /** Leaves the current source for the next one. */
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
   * @param channel "Master", "LF", "RF" or another of the UPnP channel names
   * @param volume 0 to 100
   * @param qualifier the host's second number, passed through; a simple player ignores it
   */
  public int setVolume(int id, String channel, int volume, int qualifier) {
    return NOT_SUPPORTED;
  }

  /**
   * @param qualifier the host's number, passed through; a simple player ignores it
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
   * @return the speeds that {@link #start} takes, separated by commas
   */
  public String getPlaySpeedList(int id) {
    return "1";
  }

  /**
   * @return the UPnP names of the actions possible now ("Play,Seek"), separated by commas
   */
  public String getAction(int id) {
    return "";
  }

  /**
   * @param number the host's number of the audio stream, unsigned
   * @param selection the host's description of it
   */
  public int updateAudioSelection(int id, int number, String selection) {
    return NOT_SUPPORTED;
  }

  /**
   * @param number the host's number of the video stream, unsigned
   * @param selection the host's description of it
   */
  public int updateVideoSelection(int id, int number, String selection) {
    return NOT_SUPPORTED;
  }

  /** A media server is about to be connected: the last moment to refuse. */
  public int prepareForConnection(int id, String protocolInfo) {
    return OK;
  }

  public int connectionComplete(int id) {
    return OK;
  }

  /**
   * A playlist to break into the current stream with.
   *
   * @param first the host's first text, or null
   * @param second the host's second text, or null
   */
  public int setBreakAuxStreamPlaylist(int id, int number, String first, String second) {
    return NOT_SUPPORTED;
  }

  /** When to break into the current stream. Both numbers are the host's; the first is unsigned. */
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
