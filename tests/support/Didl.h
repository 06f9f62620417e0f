#ifndef DIDL_H_
#define DIDL_H_

#include <memory>
#include <string>
#include <vector>

#include "TarqCdsAccess.h"

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

// The same, parsed.
class Didl {
 public:
  explicit Didl(const std::vector<std::string>& res)
      : result_(TARQ_Result_ParseCds(cdsText(didlText(res).c_str())), TARQ_Result_DestroyResult) {}
  const TARQ_Object* object() const { return TARQ_Result_GetObject(result_.get(), 0); }

 private:
  std::unique_ptr<TARQ_Result, void (*)(TARQ_Result*)> result_;
};

#endif  // DIDL_H_
