#ifndef TARQ_CDS_ACCESS_H_
#define TARQ_CDS_ACCESS_H_

// Read access to DIDL-Lite metadata through opaque handles, so that the selection code does not know the
// host's content-directory classes.
//
// 1. Texts are UTF-8, NUL-terminated. A text that is handed out belongs to its document and lives as long.
// 2. Whatever is missing (document, object, property, attribute, resolution) is a null pointer. Nothing logs.
// 3. A result and all that comes from it is used by one thread at a time.

struct TARQ_Result;      // a parsed document; whoever parsed it destroys it
struct TARQ_Object;      // one `item` or `container` of a document, owned by it
struct TARQ_Attributes;  // the attributes of one element, owned by the document
struct TARQ_Resolution;  // width and height in pixels; whoever parsed it destroys it

// Null when `didl` is null or does not parse.
TARQ_Result* TARQ_Result_ParseCds(const unsigned char* didl);
void TARQ_Result_DestroyResult(TARQ_Result* result);                             // null: nothing
int TARQ_Result_NumOfObjects(const TARQ_Result* result);                         // `result` not null
const TARQ_Object* TARQ_Result_GetObject(const TARQ_Result* result, int index);  // from 0; `result` not null

// In the next three `object` is not null. A property is a child element; `name` is its element
// name, e.g. "res".
int TARQ_Object_NumOfProperties(const TARQ_Object* object, const unsigned char* name);  // null: of all names
const unsigned char* TARQ_Object_GetPropertyValue(const TARQ_Object* object, const unsigned char* name,
                                                  unsigned int index);
// `name` null: an attribute of the object element itself, `index` does not matter.
const unsigned char* TARQ_Object_GetAttributeValue(const TARQ_Object* object, const unsigned char* name,
                                                   unsigned int index, const unsigned char* attribute);

// The same in two steps, for whoever reads several attributes of one element.
// Null: no such property, or it has no attributes; `attributes` not null.
const TARQ_Attributes* TARQ_Object_GetAttributes(const TARQ_Object* object, const unsigned char* name,
                                                 unsigned int index);
const unsigned char* TARQ_Attributes_GetValue(const TARQ_Attributes* attributes,
                                              const unsigned char* attribute);

// "1920x1080", with a lower-case x. Null when `text` is null or does not parse.
TARQ_Resolution* TARQ_Resolution_Parse(const unsigned char* text);
void TARQ_Resolution_Destroy(TARQ_Resolution* resolution);         // null: nothing
int TARQ_Resolution_GetWidth(const TARQ_Resolution* resolution);   // `resolution` not null
int TARQ_Resolution_GetHeight(const TARQ_Resolution* resolution);  // `resolution` not null

// The two kinds of text of the handles and of the rest of the plug-in.
inline const unsigned char* cdsText(const char* text) { return reinterpret_cast<const unsigned char*>(text); }
inline const char* plainText(const unsigned char* text) { return reinterpret_cast<const char*>(text); }

// What every reader of `res` elements asks: an attribute of the index-th one, and its text (the URL).
inline const char* resAttribute(const TARQ_Object* object, unsigned int index, const char* name) {
  return plainText(TARQ_Object_GetAttributeValue(object, cdsText("res"), index, cdsText(name)));
}
inline const char* resUrl(const TARQ_Object* object, unsigned int index) {
  return plainText(TARQ_Object_GetPropertyValue(object, cdsText("res"), index));
}

#endif  // TARQ_CDS_ACCESS_H_
