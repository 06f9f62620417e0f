package com.orsa.tarq.dlna;

/** A position in a track that advances at the play speed. Used by one thread at a time. */
final class Playhead {
  private double baseMs;
  private long sinceNs;
  private double speed; // 0: the position does not advance

  double positionMs() {
    return baseMs + (System.nanoTime() - sinceNs) / 1e6 * speed;
  }

  /** Advances at that speed from the current position on. */
  void run(double newSpeed) {
    place(positionMs(), newSpeed);
  }

  /** Moves to that position; the speed stays. */
  void jump(double ms) {
    place(ms, speed);
  }

  void place(double ms, double newSpeed) {
    baseMs = ms;
    sinceNs = System.nanoTime();
    speed = newSpeed;
  }
}
