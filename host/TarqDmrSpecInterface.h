#ifndef TARQ_DMR_SPEC_INTERFACE_H_
#define TARQ_DMR_SPEC_INTERFACE_H_

// How a renderer presents itself on the network.
// Returns: constants.
// Null: no string is ever null; it may be empty.
// Ownership: the strings belong to the plug-in and live until the process ends.
// Threads: any, at any time.
class TarqDmrSpecInterface {
 public:
  virtual ~TarqDmrSpecInterface() = default;

  virtual const char* GetOsName() const = 0;
  virtual const char* GetOsVersion() const = 0;
  virtual const char* GetProductName() const = 0;
  virtual const char* GetProductVersion() const = 0;
  virtual const char* GetProductCompany() const = 0;
  virtual const char* GetDocumentRoot() const = 0;
  virtual const char* GetDescriptionUrl() const = 0;

  // The Xav values, named after their keys in the device description.
  virtual const char* GetXav_Av() const = 0;
  virtual const char* GetXav_Hn() const = 0;
  virtual const char* GetXav_Cn() const = 0;
  virtual const char* GetXav_Mn() const = 0;
  virtual const char* GetXav_Mv() const = 0;
  virtual const char* GetXav_Pa() const = 0;
  virtual const char* GetXav_Pl() const = 0;

  // Returns: the TCP port of the device description.
  virtual int GetPortNumber() = 0;
  virtual const char* GetDefaultFriendlyName() const = 0;
  // Returns: a printf format with one %s conversion.
  virtual const char* GetDefaultUdnFormat() const = 0;
  // Returns: the name of the network interface.
  virtual const char* GetDefaultNwIf() const = 0;
  // Returns: true when control points are registered automatically.
  virtual bool GetDefaultRegModeAuto() = 0;

  // The sizes of the access lists.
  // Units: entries.
  virtual int GetAllowedListMax() = 0;
  virtual int GetDeniedListMax() = 0;
  virtual int GetPendingListMax() = 0;
};

#endif  // TARQ_DMR_SPEC_INTERFACE_H_
