#ifndef TARQ_DMR_SPEC_H_
#define TARQ_DMR_SPEC_H_

#include "TarqDmrSpecInterface.h"

// This renderer's device settings: constants, fixed when the object is built.
// Ownership: the strings are constants of the library; the object is never deleted.
// Threads: the first `GetInstance` comes from one thread; after that any.
// Units: see the interface.
class TarqDmrSpec final : public TarqDmrSpecInterface {
 public:
  static TarqDmrSpec* GetInstance();

  const char* GetOsName() const override { return osName_; }
  const char* GetOsVersion() const override { return osVersion_; }
  const char* GetProductName() const override { return productName_; }
  const char* GetProductVersion() const override { return productVersion_; }
  const char* GetProductCompany() const override { return productCompany_; }
  const char* GetDocumentRoot() const override { return documentRoot_; }
  const char* GetDescriptionUrl() const override { return descriptionUrl_; }
  const char* GetXav_Av() const override { return xavAv_; }
  const char* GetXav_Hn() const override { return xavHn_; }
  const char* GetXav_Cn() const override { return xavCn_; }
  const char* GetXav_Mn() const override { return xavMn_; }
  const char* GetXav_Mv() const override { return xavMv_; }
  const char* GetXav_Pa() const override { return xavPa_; }
  const char* GetXav_Pl() const override { return xavPl_; }
  int GetPortNumber() override { return portNumber_; }
  const char* GetDefaultFriendlyName() const override { return defaultFriendlyName_; }
  const char* GetDefaultUdnFormat() const override { return defaultUdnFormat_; }
  const char* GetDefaultNwIf() const override { return defaultNwIf_; }
  bool GetDefaultRegModeAuto() override { return defaultRegModeAuto_; }
  int GetAllowedListMax() override { return allowedListMax_; }
  int GetDeniedListMax() override { return deniedListMax_; }
  int GetPendingListMax() override { return pendingListMax_; }

 private:
  TarqDmrSpec() = default;

  const char* osName_ = "Android";
  const char* osVersion_ = "1.6";
  const char* productName_ = "Tarq Sample DMR";
  const char* productVersion_ = "0.1";
  const char* productCompany_ = "Orsa Corporation";
  const char* documentRoot_ = "/";
  const char* descriptionUrl_ = "/MediaRenderer.xml";
  const char* xavAv_ = "5.0";
  const char* xavHn_ = "";
  const char* xavCn_ = "Orsa Corporation";
  const char* xavMn_ = "Tarq Sample DMR";
  const char* xavMv_ = "0.1";
  const char* xavPa_ = "";
  const char* xavPl_ = "";
  int portNumber_ = 52323;
  const char* defaultFriendlyName_ = "Android DLNA Media Renderer(w/Plugin)";
  const char* defaultUdnFormat_ = "uuid:23456789-0000-1010-8000-%-12s";
  const char* defaultNwIf_ = "eth0";
  bool defaultRegModeAuto_ = true;
  // Smaller than the control point's, which is 64.
  int allowedListMax_ = 20;
  int deniedListMax_ = 64;
  int pendingListMax_ = 64;
};

#endif  // TARQ_DMR_SPEC_H_
