#include "TarqCdsAccess.h"

#include <new>

#include "UpnpCdsResult.h"
#include "VondResolution.h"

namespace {

// The handles are the host's objects, converted without copying.
const UpnpCdsResult* host(const TARQ_Result* result) {
  return reinterpret_cast<const UpnpCdsResult*>(result);
}
const UpnpAvObject* host(const TARQ_Object* object) { return reinterpret_cast<const UpnpAvObject*>(object); }
const UpnpAvAttributes* host(const TARQ_Attributes* attributes) {
  return reinterpret_cast<const UpnpAvAttributes*>(attributes);
}
const VondResolution* host(const TARQ_Resolution* resolution) {
  return reinterpret_cast<const VondResolution*>(resolution);
}

}  // namespace

TARQ_Result* TARQ_Result_ParseCds(const unsigned char* didl) {
  if (didl == nullptr) return nullptr;
  auto* result = new (std::nothrow) UpnpCdsResult(plainText(didl));
  if (result == nullptr) return nullptr;
  if (result->GetStatus() != 0) {
    delete result;
    return nullptr;
  }
  return reinterpret_cast<TARQ_Result*>(result);
}

void TARQ_Result_DestroyResult(TARQ_Result* result) { delete host(result); }

int TARQ_Result_NumOfObjects(const TARQ_Result* result) { return host(result)->GetNumOfObjects(); }

const TARQ_Object* TARQ_Result_GetObject(const TARQ_Result* result, int index) {
  return reinterpret_cast<const TARQ_Object*>(host(result)->GetObject(index));
}

int TARQ_Object_NumOfProperties(const TARQ_Object* object, const unsigned char* name) {
  return name == nullptr ? host(object)->GetNumOfProperties()
                         : host(object)->GetNumOfProperties(plainText(name));
}

const unsigned char* TARQ_Object_GetPropertyValue(const TARQ_Object* object, const unsigned char* name,
                                                  unsigned int index) {
  return cdsText(host(object)->GetPropertyText(plainText(name), index));
}

const TARQ_Attributes* TARQ_Object_GetAttributes(const TARQ_Object* object, const unsigned char* name,
                                                 unsigned int index) {
  const UpnpAvAttributes* attributes = nullptr;
  if (name == nullptr) {
    attributes = host(object)->GetAttributes();
  } else if (const UpnpAvProperty* property = host(object)->GetPropertyByName(plainText(name), index)) {
    attributes = property->GetAttributes();
  }
  return reinterpret_cast<const TARQ_Attributes*>(attributes);
}

const unsigned char* TARQ_Attributes_GetValue(const TARQ_Attributes* attributes,
                                              const unsigned char* attribute) {
  return cdsText(host(attributes)->GetValue(plainText(attribute)));
}

const unsigned char* TARQ_Object_GetAttributeValue(const TARQ_Object* object, const unsigned char* name,
                                                   unsigned int index, const unsigned char* attribute) {
  const TARQ_Attributes* attributes = TARQ_Object_GetAttributes(object, name, index);
  return attributes == nullptr ? nullptr : TARQ_Attributes_GetValue(attributes, attribute);
}

TARQ_Resolution* TARQ_Resolution_Parse(const unsigned char* string) {
  VondResolution* resolution = VondResolution::Parse(plainText(string), 'x');
  if (resolution == nullptr) return nullptr;
  if (resolution->GetStatus() != 0) {
    delete resolution;
    return nullptr;
  }
  return reinterpret_cast<TARQ_Resolution*>(resolution);
}

void TARQ_Resolution_Destroy(TARQ_Resolution* resolution) { delete host(resolution); }

int TARQ_Resolution_GetWidth(const TARQ_Resolution* resolution) { return host(resolution)->GetWidth(); }

int TARQ_Resolution_GetHeight(const TARQ_Resolution* resolution) { return host(resolution)->GetHeight(); }
