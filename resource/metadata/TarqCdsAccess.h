#ifndef TARQ_CDS_ACCESS_H_
#define TARQ_CDS_ACCESS_H_

// Read access to DIDL-Lite metadata through opaque handles, so that the selection code does not know the
// host's content-directory classes.
//
// Null: whatever is missing (document, object, property, attribute, resolution) is a null pointer. Parameters
//   are not null unless their function says so.
// Ownership: whoever parses a result or a resolution destroys it. Everything read from a result
//   belongs to it.
// Threads: a result and everything read from it is used by one thread at a time.
// Errors: null; nothing is logged. Strings are UTF-8.

struct TARQ_Result;      // a parsed document
struct TARQ_Object;      // one `item` or `container` of a document
struct TARQ_Attributes;  // the attributes of one element
struct TARQ_Resolution;  // width and height in pixels

// Returns: a new result; null when `didl` is null or does not parse.
TARQ_Result* TARQ_Result_ParseCds(const unsigned char* didl);
// Null: nothing happens.
void TARQ_Result_DestroyResult(TARQ_Result* result);
int TARQ_Result_NumOfObjects(const TARQ_Result* result);
// `index` counts from 0.
const TARQ_Object* TARQ_Result_GetObject(const TARQ_Result* result, int index);

// A property is a child element; `name` is its element name, for example "res".
// Returns: the number of properties of that name, or of all when `name` is null.
int TARQ_Object_NumOfProperties(const TARQ_Object* object, const unsigned char* name);
// Returns: the string content of the `index`-th (from 0) property of that name.
const unsigned char* TARQ_Object_GetPropertyValue(const TARQ_Object* object, const unsigned char* name,
                                                  unsigned int index);
// Returns: an attribute of that property; of the object element itself, whatever the index, when
//   `name` is null.
const unsigned char* TARQ_Object_GetAttributeValue(const TARQ_Object* object, const unsigned char* name,
                                                   unsigned int index, const unsigned char* attribute);

// The same in two steps, for whoever reads several attributes of one element.
// Returns: null also when the property has no attributes.
const TARQ_Attributes* TARQ_Object_GetAttributes(const TARQ_Object* object, const unsigned char* name,
                                                 unsigned int index);
const unsigned char* TARQ_Attributes_GetValue(const TARQ_Attributes* attributes,
                                              const unsigned char* attribute);

// Parses "1920x1080", with a lower-case x.
// Returns: a new resolution; null when `string` is null or does not parse.
TARQ_Resolution* TARQ_Resolution_Parse(const unsigned char* string);
// Null: nothing happens.
void TARQ_Resolution_Destroy(TARQ_Resolution* resolution);
int TARQ_Resolution_GetWidth(const TARQ_Resolution* resolution);
int TARQ_Resolution_GetHeight(const TARQ_Resolution* resolution);

// The strings of the handles and of the rest of the plug-in differ in their type only.
inline const unsigned char* cdsText(const char* string) {
  return reinterpret_cast<const unsigned char*>(string);
}
inline const char* plainText(const unsigned char* string) { return reinterpret_cast<const char*>(string); }

// What every reader of `res` elements asks for: an attribute of the index-th one, and its content (the URL).
inline const char* resAttribute(const TARQ_Object* object, unsigned int index, const char* name) {
  return plainText(TARQ_Object_GetAttributeValue(object, cdsText("res"), index, cdsText(name)));
}
inline const char* resUrl(const TARQ_Object* object, unsigned int index) {
  return plainText(TARQ_Object_GetPropertyValue(object, cdsText("res"), index));
}

#endif  // TARQ_CDS_ACCESS_H_
