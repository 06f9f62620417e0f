#ifndef DIDL_H_
#define DIDL_H_

#include <memory>

#include "DidlText.h"
#include "TarqCdsAccess.h"

// The parsed document of one item that has these `res` elements.
class Didl {
 public:
  explicit Didl(const std::vector<std::string>& res)
      : result_(TARQ_Result_ParseCds(cdsText(didlText(res).c_str())), TARQ_Result_DestroyResult) {}
  const TARQ_Object* object() const { return TARQ_Result_GetObject(result_.get(), 0); }

 private:
  std::unique_ptr<TARQ_Result, void (*)(TARQ_Result*)> result_;
};

#endif  // DIDL_H_
