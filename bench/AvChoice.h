#ifndef AV_CHOICE_H_
#define AV_CHOICE_H_

#include <libgupnp-av/gupnp-av.h>

#include <memory>
#include <string>

// The choice that GUPnP's own library for UPnP AV makes for the same document: the first resource that `sink`, a
// sink protocolInfo, has an entry for.
// Returns: 1 when it chose one.
inline size_t avChoice(const std::string& metadata, const char* sink) {
  struct Choice {
    const char* sink;
    size_t chosen;
  } choice = {sink, 0};
  const auto choose = +[](GUPnPDIDLLiteParser*, GUPnPDIDLLiteObject* object, gpointer data) {
    auto* made = static_cast<Choice*>(data);
    GUPnPDIDLLiteResource* resource = gupnp_didl_lite_object_get_compat_resource(object, made->sink, FALSE);
    if (resource == nullptr) return;
    made->chosen = 1;
    g_object_unref(resource);
  };
  const std::unique_ptr<GUPnPDIDLLiteParser, void (*)(gpointer)> parser(gupnp_didl_lite_parser_new(),
                                                                        g_object_unref);
  g_signal_connect(parser.get(), "object-available", G_CALLBACK(choose), &choice);
  gupnp_didl_lite_parser_parse_didl(parser.get(), metadata.c_str(), nullptr);
  return choice.chosen;
}

#endif  // AV_CHOICE_H_
