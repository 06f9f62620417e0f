#ifndef TARQ_DMR_SPEC_INTERFACE_H_
#define TARQ_DMR_SPEC_INTERFACE_H_

// How a renderer presents itself on the network.
// Every text is constant, never null (it may be empty) and belongs to the plug-in.
// Threads: any, at any time. The Xav values are named after their keys in the device description.
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
  virtual const char* GetXav_Av() const = 0;
  virtual const char* GetXav_Hn() const = 0;
  virtual const char* GetXav_Cn() const = 0;
  virtual const char* GetXav_Mn() const = 0;
  virtual const char* GetXav_Mv() const = 0;
  virtual const char* GetXav_Pa() const = 0;
  virtual const char* GetXav_Pl() const = 0;
  virtual int GetPortNumber() = 0;  // TCP
  virtual const char* GetDefaultFriendlyName() const = 0;
  virtual const char* GetDefaultUdnFormat() const = 0;  // printf format with one %s conversion
  virtual const char* GetDefaultNwIf() const = 0;
  virtual bool GetDefaultRegModeAuto() = 0;
  virtual int GetAllowedListMax() = 0;  // entries of the access lists
  virtual int GetDeniedListMax() = 0;
  virtual int GetPendingListMax() = 0;
};

#endif  // TARQ_DMR_SPEC_INTERFACE_H_
