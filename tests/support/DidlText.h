#ifndef DIDL_TEXT_H_
#define DIDL_TEXT_H_

#include <string>
#include <vector>

inline std::string repeated(const std::string& part, size_t count) {
  std::string all;
  for (; count > 0; --count) all += part;
  return all;
}

// `attributes` are further ones, as they are written.
inline std::string resElement(const std::string& protocolInfo, const std::string& url,
                              const std::string& attributes = "") {
  return "<res protocolInfo='" + protocolInfo + "' " + attributes + ">" + url + "</res>";
}

// A DIDL-Lite document with one item that has these `res` elements.
inline std::string didlText(const std::vector<std::string>& res) {
  std::string text = "<DIDL-Lite xmlns='urn:schemas-upnp-org:metadata-1-0/DIDL-Lite/'><item id='1'>";
  for (const std::string& element : res) text += element;
  return text + "</item></DIDL-Lite>";
}

#endif  // DIDL_TEXT_H_
