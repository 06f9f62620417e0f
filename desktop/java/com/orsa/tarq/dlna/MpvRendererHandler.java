package com.orsa.tarq.dlna;

import java.util.List;

/**
 * A handler that plays with mpv, as one transport, whatever the id. mpv shows pictures in a window; what
 * the user does there (pause, volume, quit) is seen here.
 *
 * <p>Only http and https are played: sources come from devices on the network, and mpv would open any
 * file of this machine.
 *
 * <p><b>Threads.</b> Calls may come on several threads at once; one lock keeps them apart from each
 * other and from mpv's events. What a call asks for is answered from memory. Only {@link #open}, and
 * {@link #start} when mpv has ended, wait for mpv to start. mpv ends with the VM, at the latest.
 */
public final class MpvRendererHandler extends TarqRendererHandler implements PlaybackReport {
  /** mpv could not be started: see {@link #getFailure}. */
  public static final int START_FAILED = 100;

  private final MpvPlayer player = new MpvPlayer();

  public MpvRendererHandler() {
    Runtime.getRuntime().addShutdownHook(new Thread(this::close));
  }

  /** Starts mpv, with more options for its command line; {@link #getFailure} says whether it runs. */
  public void open(String... options) {
    player.open(List.of(options));
  }

  /** Ends mpv. */
  public void close() {
    player.close();
  }

  @Override
  public int setDataSource(
      int id, String currentUri, String currentUriMetadata, String currentContentType) {
    if (!isPlayable(currentUri)) return INVALID_ARGUMENT;
    player.setSource(currentUri);
    return OK;
  }

  @Override
  public int setNextDataSource(
      int id, String nextUri, String nextUriMetadata, String nextContentType) {
    if (!isPlayable(nextUri)) return INVALID_ARGUMENT;
    player.setNextSource(nextUri);
    return OK;
  }

  @Override
  public int start(int id, String playSpeed) {
    if (!playSpeed.equals("1")) return INVALID_ARGUMENT;
    synchronized (player) {
      if (player.source().isEmpty()) return INVALID_STATE;
      if (!player.isActive()) return player.start() ? OK : START_FAILED;
      player.setPaused(false);
      return OK;
    }
  }

  @Override
  public int stop(int id) {
    player.stop();
    return OK;
  }

  @Override
  public int pause(int id) {
    synchronized (player) {
      if (getState(id) != PLAYING) return INVALID_STATE;
      player.setPaused(true);
      return OK;
    }
  }

  @Override
  public int seekTo(int id, int target) {
    synchronized (player) {
      if (!player.isActive()) return INVALID_STATE;
      if (!player.isSeekable()) return NOT_SUPPORTED;
      int duration = player.durationMs();
      if (target < 0 || (duration != 0 && target > duration)) return INVALID_ARGUMENT;
      player.seek(target);
      return OK;
    }
  }

  @Override
  public int next(int id) {
    synchronized (player) {
      if (player.nextSource().isEmpty()) return INVALID_STATE;
      boolean wasPlaying = getState(id) == PLAYING;
      player.takeNext();
      return wasPlaying ? start(id, "1") : OK;
    }
  }

  @Override
  public int getCurrentPosition(int id) {
    return player.positionMs();
  }

  @Override
  public int getState(int id) {
    synchronized (player) {
      if (!player.isActive()) return STOPPED;
      return player.isPaused() ? PAUSED : PLAYING;
    }
  }

  @Override
  public int setVolume(int id, String channel, int volume, int qualifier) {
    if (!isMaster(channel) || volume < 0 || volume > MpvPlayer.MAX_VOLUME) return INVALID_ARGUMENT;
    player.setVolume(volume);
    return OK;
  }

  @Override
  public int getVolume(int id, String channel, int qualifier) {
    return player.volume();
  }

  @Override
  public int setMute(int id, String channel, boolean mute) {
    if (!isMaster(channel)) return INVALID_ARGUMENT;
    player.setMute(mute);
    return OK;
  }

  @Override
  public boolean getMute(int id, String channel) {
    return player.isMute();
  }

  @Override
  public String getAction(int id) {
    synchronized (player) {
      if (player.source().isEmpty()) return "";
      String next = player.nextSource().isEmpty() ? "" : ",Next";
      if (!player.isActive()) return "Play" + next;
      String pause = player.isPaused() ? "" : ",Pause";
      String seek = player.isSeekable() ? ",Seek" : "";
      return "Play,Stop" + pause + seek + next;
    }
  }

  @Override
  public int getTrackDuration(int id) {
    return player.durationMs();
  }

  @Override
  public int getCurrentTrack() {
    return player.track();
  }

  @Override
  public String getCurrentSource() {
    return player.source();
  }

  @Override
  public String getFailure() {
    return player.failure();
  }

  private boolean isPlayable(String uri) {
    boolean playable = uri.isEmpty() || ExternalProgram.isPlayable(uri);
    if (!playable) player.setFailure("only http and https URIs are handed to mpv");
    return playable;
  }

  private static boolean isMaster(String channel) {
    return channel.equals("Master");
  }
}
