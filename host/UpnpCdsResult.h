#ifndef UPNP_CDS_RESULT_H_
#define UPNP_CDS_RESULT_H_

#include "TarqHostApi.h"

// Parsed DIDL-Lite (ContentDirectory:1, 2.8): a document, its objects (`item` and `container`), their
// properties (child elements) and attributes. Names are qualified names as written ("res", "dc:title",
// "av:mpfEntries"); a prefix that the root element itself carries is dropped from element names. Threads: a
// result with all that belongs to it is used by one thread at a time, reading included. Owns: the result owns
// its objects, properties, attributes and all their texts. Cost: reading the n-th property of a name does not
// depend on n.

// The attributes of one element.
class TARQ_HOST_API UpnpAvAttributes {
 public:
  virtual const char* GetValue(const char* name) const noexcept = 0;  // null when absent; of two the first

 protected:
  ~UpnpAvAttributes() = default;
};

// One child element of an object.
class TARQ_HOST_API UpnpAvProperty {
 public:
  // All character data of the element joined, without white space at both ends; never null.
  virtual const char* GetText() const noexcept = 0;
  virtual const UpnpAvAttributes* GetAttributes() const noexcept = 0;  // null when it has none

 protected:
  ~UpnpAvProperty() = default;
};

// One `item` or `container`.
class TARQ_HOST_API UpnpAvObject {
 public:
  virtual int GetNumOfProperties() const noexcept = 0;
  virtual int GetNumOfProperties(const char* name) const noexcept = 0;
  // The text of the index-th (from 0) property of that name; null when there is none.
  virtual const char* GetPropertyText(const char* name, unsigned int index) const noexcept = 0;
  // The index-th property of that name, null when there is none.
  virtual const UpnpAvProperty* GetPropertyByName(const char* name, unsigned int index) const noexcept = 0;
  virtual const UpnpAvAttributes* GetAttributes() const noexcept = 0;  // null when it has none

 protected:
  ~UpnpAvObject() = default;
};

// Any answer that lists objects.
class TARQ_HOST_API UpnpAvResult {
 public:
  virtual ~UpnpAvResult();
  virtual int GetNumOfObjects() const noexcept = 0;
  virtual const UpnpAvObject* GetObject(int index) const noexcept = 0;  // from 0; null out of range
};

// A DIDL-Lite document.
class TARQ_HOST_API UpnpCdsResult : public UpnpAvResult {
 public:
  // Not parsed: null, no well-formed XML, another root than `DIDL-Lite`, a document type declaration, over 4
  // MiB.
  explicit UpnpCdsResult(const char* didl) noexcept;
  ~UpnpCdsResult() override;
  UpnpCdsResult(const UpnpCdsResult&) = delete;
  UpnpCdsResult& operator=(const UpnpCdsResult&) = delete;

  int GetStatus() const noexcept;  // 0: parsed
  int GetNumOfObjects() const noexcept override;
  const UpnpAvObject* GetObject(int index) const noexcept override;

 private:
  struct Document;
  Document* document_;  // null when not parsed
};

#endif  // UPNP_CDS_RESULT_H_
