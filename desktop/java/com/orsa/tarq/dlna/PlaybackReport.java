package com.orsa.tarq.dlna;

/**
 * What a host may ask a handler of the same process, beside the calls of {@link TarqRendererHandler}:
 * these cannot say that a track failed, nor that the next source has taken over.
 *
 * <p><b>Threads.</b> Any, also several at once. The answers come from memory.
 */
public interface PlaybackReport {
  /** The number of the current track since its source was set, from 1. */
  int getCurrentTrack();

  /**
   * @return the URI that plays, or that {@link TarqRendererHandler#start} would play; it changes with
   *     the track; empty: nothing to play
   */
  String getCurrentSource();

  /** Why the last call failed, or why the current track ended early; empty: neither. */
  String getFailure();
}
