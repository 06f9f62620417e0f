#ifndef TARQ_DMR_INVOKE_JAVA_H_
#define TARQ_DMR_INVOKE_JAVA_H_

#include "TarqDmrPlayerInterface.h"

// The player: passes every action on to the application's Java handler and plays nothing itself.
// Ownership: the handler's reference belongs to the process, not to this object, which is never deleted.
// Threads: the first `GetInstance` comes from one thread; for the operations see the interface.
class TarqDmrInvokeJava final : public TarqDmrPlayerInterface {
 public:
  static TarqDmrInvokeJava* GetInstance();

  int AddCb(JNIEnv* env, jobject handler) override;
  int RemoveCb(JNIEnv* env) override;
  int SetDataSource(unsigned int id, const char* pCurrentURI, const char* pCurrentURIMetaData,
                    const char* pCurrentContentType) override;
  int SetNextDataSource(unsigned int id, const char* pNextURI, const char* pNextURIMetaData,
                        const char* pNextContentType) override;
  int Start(unsigned int id, const char* pPlaySpeed) override;
  int Stop(unsigned int id) override;
  int Pause(unsigned int id) override;
  int SeekTo(unsigned int id, int target) override;
  int Next(unsigned int id) override;
  int GetCurrentPosition(unsigned int id, int* position) override;
  int GetState(unsigned int id, int* state) override;
  int SetVolume(unsigned int id, const char* pChannel, unsigned int volume, unsigned int qualifier) override;
  int GetVolume(unsigned int id, const char* pChannel, int qualifier, unsigned int* volume) override;
  int SetVolumeDB(unsigned int id, const char* pChannel, int volume, int qualifier) override;
  int GetVolumeDB(unsigned int id, const char* pChannel, int qualifier, int* volume) override;
  int SetMute(unsigned int id, const char* pChannel, bool mute) override;
  int GetMute(unsigned int id, const char* pChannel, bool& mute) override;
  int GetPlaySpeedList(unsigned int id, char** speeds) override;
  int GetAction(unsigned int id, char** actions) override;
  int X_UpdateAudioSelection(unsigned int id, unsigned int number, const char* selection) override;
  int X_UpdateVideoSelection(unsigned int id, unsigned int number, const char* selection) override;
  int PrepareForConnection(unsigned int id, const char* protocolInfo) override;
  int ConnectionComplete(unsigned int id) override;
  int SetBreakAuxStreamPlaylist(unsigned int id, int number, const char* playlist,
                                const char* detail) override;
  int SetBreakAuxStreamTrigger(unsigned int id, unsigned int number, long long trigger) override;
  int GetTrackDuration(unsigned int id, int* duration) override;

 private:
  TarqDmrInvokeJava() = default;
};

#endif  // TARQ_DMR_INVOKE_JAVA_H_
