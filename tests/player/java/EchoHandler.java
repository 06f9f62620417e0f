import com.orsa.tarq.dlna.TarqRendererHandler;
import java.util.Arrays;

/** Remembers the last call and returns its id; throws when the id is 13. */
public class EchoHandler extends TarqRendererHandler {
  private volatile String last = "";

  private int echo(String method, Object... arguments) {
    last = method + Arrays.toString(arguments);
    int id = (Integer) arguments[0];
    if (id == 13) throw new IllegalStateException("as the test expects");
    return id;
  }

  // @formatter:off
  @Override public String toString() { return last; }
  public String liveThreads() { return String.valueOf(Thread.activeCount()); }
  @Override public int setDataSource(int id, String u, String m, String t) { return echo("setDataSource", id, u, m, t); }
  @Override public int setNextDataSource(int id, String u, String m, String t) { return echo("setNextDataSource", id, u, m, t); }
  @Override public int start(int id, String speed) { return echo("start", id, speed); }
  @Override public int stop(int id) { return echo("stop", id); }
  @Override public int pause(int id) { return echo("pause", id); }
  @Override public int seekTo(int id, int target) { return echo("seekTo", id, target); }
  @Override public int next(int id) { return echo("next", id); }
  @Override public int getCurrentPosition(int id) { return echo("getCurrentPosition", id); }
  @Override public int getState(int id) { return echo("getState", id); }
  @Override public int setVolume(int id, String c, int v, int q) { return echo("setVolume", id, c, v, q); }
  @Override public int getVolume(int id, String c, int q) { return echo("getVolume", id, c, q); }
  @Override public int setMute(int id, String c, boolean mute) { return echo("setMute", id, c, mute); }
  @Override public boolean getMute(int id, String c) { return echo("getMute", id, c) != 0; }
  @Override public String getPlaySpeedList(int id) { return echo("getPlaySpeedList", id) == 0 ? null : "1\0\ud83d\ude00"; }
  @Override public String getAction(int id) { return echo("getAction", id) == 0 ? null : "\u00e9\ud83d"; }
  @Override public int updateAudioSelection(int id, int n, String s) { return echo("updateAudioSelection", id, n, s); }
  @Override public int updateVideoSelection(int id, int n, String s) { return echo("updateVideoSelection", id, n, s); }
  @Override public int prepareForConnection(int id, String p) { return echo("prepareForConnection", id, p); }
  @Override public int connectionComplete(int id) { return echo("connectionComplete", id); }
  @Override public int setBreakAuxStreamPlaylist(int id, int n, String a, String b) { return echo("setBreakAuxStreamPlaylist", id, n, a, b); }
  @Override public int setBreakAuxStreamTrigger(int id, int n, long t) { return echo("setBreakAuxStreamTrigger", id, n, t); }
  @Override public int getTrackDuration(int id) { return echo("getTrackDuration", id); }
}
