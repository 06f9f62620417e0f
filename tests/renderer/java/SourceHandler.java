import com.orsa.tarq.dlna.TarqRendererHandler;

/** Shows what it was given to play as the list of what can be done, where control points can read it. */
public class SourceHandler extends TarqRendererHandler {
  private volatile String source = "";

  @Override
  public int setDataSource(int id, String uri, String metadata, String contentType) {
    source = uri + "\n" + contentType + "\n" + metadata;
    return OK;
  }

  @Override
  public String getAction(int id) {
    return source;
  }
}
