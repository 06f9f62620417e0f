#ifndef TARQ_DMR_CP_PARAMS_INTERFACE_H_
#define TARQ_DMR_CP_PARAMS_INTERFACE_H_

// The tuning values of the host's control-point side. What each value controls is defined by the host; a
// value without a unit below is a plain count.
// Returns: constants.
// Null: no string is ever null; it may be empty.
// Ownership: the strings belong to the plug-in and live until the process ends.
// Threads: any, at any time.
class TarqDmrCpParamsInterface {
 public:
  virtual ~TarqDmrCpParamsInterface() = default;

  // The Xav values, named after their keys in the device description.
  virtual const char* GetXav_Av() const = 0;
  virtual const char* GetXav_Hn() const = 0;
  virtual const char* GetXav_Cn() const = 0;
  virtual const char* GetXav_Mn() const = 0;
  virtual const char* GetXav_Mv() const = 0;
  virtual const char* GetXav_Pa() const = 0;
  virtual const char* GetXav_Pl() const = 0;

  // The sizes of the access lists.
  // Units: entries.
  virtual int GetNacAllowedMax() = 0;
  virtual int GetNacDeniedMax() = 0;
  virtual int GetNacPendingMax() = 0;

  // The command queue: its length, and how many of its commands run at once.
  // Units: commands.
  virtual int GetQueueSize() = 0;
  virtual int GetConcurrentExec() = 0;

  // The thread pool: its size, and after how long an idle thread leaves it.
  // Units: threads; the unit of the timeout is defined by the host.
  virtual int GetPoolSizeMin() = 0;
  virtual int GetPoolSizeMax() = 0;
  virtual int GetPoolTimeout() = 0;

  // Units: commands.
  virtual int GetCommandListLimit() = 0;
  // Units: devices.
  virtual int GetInitialDeviceListSize() = 0;
  // Units: SOAP requests or connections, as defined by the host.
  virtual int GetSoapNum() = 0;
  // Returns: the TCP port that receives events.
  virtual int GetEventPort() = 0;
};

#endif  // TARQ_DMR_CP_PARAMS_INTERFACE_H_
