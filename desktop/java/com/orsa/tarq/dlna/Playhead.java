package com.orsa.tarq.dlna;

/** A position in a track that moves with the play speed. Used by one thread at a time. */
final class Playhead {
  private double baseMs;
  private long sinceNs;
  private double speed; // 0: it stands still

  double positionMs() {
    return baseMs + (System.nanoTime() - sinceNs) / 1e6 * speed;
  }

  /** Goes on from where it is. */
  void run(double newSpeed) {
    place(positionMs(), newSpeed);
  }

  /** Goes on from there, as fast as before. */
  void jump(double ms) {
    place(ms, speed);
  }

  void place(double ms, double newSpeed) {
    baseMs = ms;
    sinceNs = System.nanoTime();
    speed = newSpeed;
  }
}
