#ifndef UPNP_CDS_RESULT_H_
#define UPNP_CDS_RESULT_H_

#include "TarqHostApi.h"

// Parsed DIDL-Lite: a document, its objects (`item` and `container`), their properties (child elements) and
// attributes. Names are qualified names as written ("res", "dc:title", "av:mpfEntries"); a prefix that the
// root element itself has is dropped from element names. Reading one property or attribute of an object with
// n properties does not take O(n) each time.
// Ownership: the result owns its objects, properties, attributes and all their strings.
// Threads: a result, with all that belongs to it, is used by one thread at a time, reading included.
// Source: ContentDirectory:1, 2.8.

// The attributes of one element.
class TARQ_HOST_API UpnpAvAttributes {
 public:
  // Returns: the value of the first attribute of that name.
  // Null: returned when there is none, and when `name` is null.
  virtual const char* GetValue(const char* name) const noexcept = 0;

 protected:
  ~UpnpAvAttributes() = default;
};

// One child element of an object.
class TARQ_HOST_API UpnpAvProperty {
 public:
  // Null: returned when the element has no attributes.
  virtual const UpnpAvAttributes* GetAttributes() const noexcept = 0;

 protected:
  ~UpnpAvProperty() = default;
};

// One `item` or `container`.
class TARQ_HOST_API UpnpAvObject {
 public:
  virtual int GetNumOfProperties() const noexcept = 0;
  // Null: no property has a null name.
  virtual int GetNumOfProperties(const char* name) const noexcept = 0;
  // Returns: all character data of the index-th property (from 0) of that name, joined, without white space
  //   at its ends.
  // Null: returned when there is no such property.
  virtual const char* GetPropertyText(const char* name, unsigned int index) const noexcept = 0;
  // Returns: the index-th property (from 0) of that name.
  // Null: returned when there is none.
  virtual const UpnpAvProperty* GetPropertyByName(const char* name, unsigned int index) const noexcept = 0;
  // Null: returned when the object element has no attributes.
  virtual const UpnpAvAttributes* GetAttributes() const noexcept = 0;

 protected:
  ~UpnpAvObject() = default;
};

// A result that lists objects.
class TARQ_HOST_API UpnpAvResult {
 public:
  virtual ~UpnpAvResult();
  virtual int GetNumOfObjects() const noexcept = 0;
  // Returns: the object at that index, from 0.
  // Null: returned when the index is out of range.
  virtual const UpnpAvObject* GetObject(int index) const noexcept = 0;
};

// A DIDL-Lite document.
class TARQ_HOST_API UpnpCdsResult : public UpnpAvResult {
 public:
  // Null: not parsed.
  // Units: at most 4 MiB, 16,384 times "<" (every tag and comment has one) and 65,536 times "=".
  // Errors: not parsed either when tags do not match, something other than white space, comments and an XML
  //   declaration is beside the root, the root is not `DIDL-Lite`, an attribute value has no quotes, text has a
  //   "<" that begins no tag, there is a document type declaration, a limit is exceeded, or on allocation
  //   failure. Control points get other things wrong, and these are taken as they are: "&" that begins no
  //   entity, unknown entities, "<" in attribute values, repeated attributes, bytes that are not UTF-8.
  explicit UpnpCdsResult(const char* didl) noexcept;
  ~UpnpCdsResult() override;
  UpnpCdsResult(const UpnpCdsResult&) = delete;
  UpnpCdsResult& operator=(const UpnpCdsResult&) = delete;

  // Returns: 0 when the document was parsed, -1 when it was not.
  int GetStatus() const noexcept;
  int GetNumOfObjects() const noexcept override;
  const UpnpAvObject* GetObject(int index) const noexcept override;

 private:
  struct TARQ_HOST_PRIVATE Document;

  // Null when not parsed.
  Document* document_;
};

#endif  // UPNP_CDS_RESULT_H_
