#ifndef TARQ_DMR_CP_PARAMS_INTERFACE_H_
#define TARQ_DMR_CP_PARAMS_INTERFACE_H_

// The tuning values of the host's control-point side.
// Every text is constant, never null (it may be empty) and belongs to the plug-in. Threads: any, at any time.
class TarqDmrCpParamsInterface {
 public:
  virtual ~TarqDmrCpParamsInterface() = default;
  virtual const char* GetXav_Av() const = 0;
  virtual const char* GetXav_Hn() const = 0;
  virtual const char* GetXav_Cn() const = 0;
  virtual const char* GetXav_Mn() const = 0;
  virtual const char* GetXav_Mv() const = 0;
  virtual const char* GetXav_Pa() const = 0;
  virtual const char* GetXav_Pl() const = 0;
  virtual int GetNacAllowedMax() = 0;  // entries of the access lists
  virtual int GetNacDeniedMax() = 0;
  virtual int GetNacPendingMax() = 0;
  virtual int GetQueueSize() = 0;
  virtual int GetConcurrentExec() = 0;
  virtual int GetPoolSizeMin() = 0;
  virtual int GetPoolSizeMax() = 0;
  virtual int GetPoolTimeout() = 0;
  virtual int GetCommandListLimit() = 0;
  virtual int GetInitialDeviceListSize() = 0;
  virtual int GetSoapNum() = 0;
  virtual int GetEventPort() = 0;  // TCP
};

#endif  // TARQ_DMR_CP_PARAMS_INTERFACE_H_
