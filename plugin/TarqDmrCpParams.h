#ifndef TARQ_DMR_CP_PARAMS_H_
#define TARQ_DMR_CP_PARAMS_H_

#include "TarqDmrCpParamsInterface.h"

// The tuning values of the control-point side: constants, fixed when the object is built.
// Ownership: the strings are constants of the library; the object is never deleted.
// Threads: the first `GetInstance` comes from one thread; after that any.
// Units: see the interface.
class TarqDmrCpParams final : public TarqDmrCpParamsInterface {
 public:
  static TarqDmrCpParams* GetInstance();

  const char* GetXav_Av() const override { return xavAv_; }
  const char* GetXav_Hn() const override { return xavHn_; }
  const char* GetXav_Cn() const override { return xavCn_; }
  const char* GetXav_Mn() const override { return xavMn_; }
  const char* GetXav_Mv() const override { return xavMv_; }
  const char* GetXav_Pa() const override { return xavPa_; }
  const char* GetXav_Pl() const override { return xavPl_; }
  int GetNacAllowedMax() override { return nacAllowedMax_; }
  int GetNacDeniedMax() override { return nacDeniedMax_; }
  int GetNacPendingMax() override { return nacPendingMax_; }
  int GetQueueSize() override { return queueSize_; }
  int GetConcurrentExec() override { return concurrentExec_; }
  int GetPoolSizeMin() override { return poolSizeMin_; }
  int GetPoolSizeMax() override { return poolSizeMax_; }
  int GetPoolTimeout() override { return poolTimeout_; }
  int GetCommandListLimit() override { return commandListLimit_; }
  int GetInitialDeviceListSize() override { return initialDeviceListSize_; }
  int GetSoapNum() override { return soapNum_; }
  int GetEventPort() override { return eventPort_; }

 private:
  TarqDmrCpParams() = default;

  const char* xavAv_ = "5.0";
  const char* xavHn_ = "";
  const char* xavCn_ = "Orsa Corporation";
  const char* xavMn_ = "Tarq Sample DMR-CP";
  const char* xavMv_ = "0.1";
  const char* xavPa_ = "";
  const char* xavPl_ = "";
  int nacAllowedMax_ = 64;
  int nacDeniedMax_ = 64;
  int nacPendingMax_ = 64;
  int queueSize_ = 32;
  int concurrentExec_ = 2;
  int poolSizeMin_ = 3;
  int poolSizeMax_ = 3;
  int poolTimeout_ = 0;
  int commandListLimit_ = 32;
  int initialDeviceListSize_ = 64;
  int soapNum_ = 8;
  int eventPort_ = 22222;
};

#endif  // TARQ_DMR_CP_PARAMS_H_
