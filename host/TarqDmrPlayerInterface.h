#ifndef TARQ_DMR_PLAYER_INTERFACE_H_
#define TARQ_DMR_PLAYER_INTERFACE_H_

#include <jni.h>

// Result codes of the player. The numbers are a contract with the host and with the Java handler, which
// answers in the same codes and may add its own.
enum TarqPlayerResult : int {
  kPlayerOk = 0,
  kPlayerNoEnvironment = 1,  // the thread has no JNI environment and could not get one
  kPlayerNotSupported = 2,
  kPlayerHandlerLookupFailed = 3,  // the handler's class, or a method of that name and signature
  kPlayerOutOfMemory = 5,          // a text or a reference could not be made in the Java VM
  kPlayerInvalidArgument = 9,      // a text that must be there is null
  kPlayerInvalidState = 10,        // no handler is registered, or one is registered already
};

// Plays media: every transport, rendering and connection action of a control point becomes one call here.
// The actions go on to a Java object of the application, the handler (TarqRendererHandler or a class derived
// from it), which does the playing.
//
// Result: a TarqPlayerResult, or exactly what the handler's method answered. An operation with an out
//   parameter answers kPlayerOk when it stored a value; the value can be anything the handler answered.
// Threads: any, also at once, attached to the Java VM or not; an operation leaves its thread as it found it
//   and blocks for as long as the handler takes. `AddCb` and `RemoveCb` come from a thread inside the VM, one
//   at a time, and `RemoveCb` never while another operation runs. No Java exception may be pending when an
//   operation is called, and none is when it returns.
// Owns: a global reference to the handler, from `AddCb` to `RemoveCb`. It keeps none of the texts it is
// given.
//   A text that it hands out belongs to the caller, who ends it with `free`.
// Null: a text marked "required" gives kPlayerInvalidArgument when null, "optional" reaches the handler as
//   a Java null. An out parameter is never null; it is written only on success.
// Units: passed through. What ids, positions, states, volumes and selections mean is agreed between the host
//   and the handler. Numbers arrive in Java with the same bits: an id above 2147483647 becomes negative.
class TarqDmrPlayerInterface {
 public:
  virtual ~TarqDmrPlayerInterface() = default;

  // Registers the handler. kPlayerInvalidState when it is null or when there is one already, which then
  // stays.
  virtual int AddCb(JNIEnv* env, jobject handler) = 0;
  virtual int RemoveCb(JNIEnv* env) = 0;  // kPlayerInvalidState when there is none

  // What to play. The URI is required and may be empty; the metadata (DIDL-Lite) is optional; the content
  // type (MIME) is required when neither URI nor metadata is null or empty, and optional otherwise.
  virtual int SetDataSource(unsigned int id, const char* pCurrentURI, const char* pCurrentURIMetaData,
                            const char* pCurrentContentType) = 0;
  // What to play after it. URI and content type are required. The metadata is optional; where there is no
  // memory for it, the handler gets none.
  virtual int SetNextDataSource(unsigned int id, const char* pNextURI, const char* pNextURIMetaData,
                                const char* pNextContentType) = 0;
  virtual int Start(unsigned int id, const char* pPlaySpeed) = 0;  // required, "1" is normal
  virtual int Stop(unsigned int id) = 0;
  virtual int Pause(unsigned int id) = 0;
  virtual int SeekTo(unsigned int id, int target) = 0;
  virtual int Next(unsigned int id) = 0;
  virtual int GetCurrentPosition(unsigned int id, int* position) = 0;
  virtual int GetState(unsigned int id, int* state) = 0;

  // The channel ("Master", "LF") is required.
  virtual int SetVolume(unsigned int id, const char* pChannel, unsigned int first, unsigned int second) = 0;
  virtual int GetVolume(unsigned int id, const char* pChannel, int qualifier, unsigned int* volume) = 0;
  // Volumes in decibel: kPlayerNotSupported, with or without a handler.
  virtual int SetVolumeDB(unsigned int id, const char* channel, int first, int second) = 0;
  virtual int GetVolumeDB(unsigned int id, const char* channel, int qualifier, int* volume) = 0;
  virtual int SetMute(unsigned int id, const char* pChannel, bool mute) = 0;
  virtual int GetMute(unsigned int id, const char* pChannel, bool& mute) = 0;

  // New texts. The result is that of TarqJniUtil::NewCString; a handler that answers null gives what that
  // gives for null (libtarq: kPlayerInvalidArgument).
  virtual int GetPlaySpeedList(unsigned int id, char** speeds) = 0;
  virtual int GetAction(unsigned int id, char** actions) = 0;

  // The text goes to TarqJniUtil::NewJStringUTF8s, null or not (libtarq: null gives kPlayerOutOfMemory).
  virtual int X_UpdateAudioSelection(unsigned int id, unsigned int number, const char* selection) = 0;
  virtual int X_UpdateVideoSelection(unsigned int id, unsigned int number, const char* selection) = 0;
  virtual int PrepareForConnection(unsigned int id, const char* protocolInfo) = 0;
  virtual int ConnectionComplete(unsigned int id) = 0;
  virtual int SetBreakAuxStreamPlaylist(unsigned int id, int number, const char* first,
                                        const char* second) = 0;  // both optional
  virtual int SetBreakAuxStreamTrigger(unsigned int id, unsigned int number, long long trigger) = 0;
  virtual int GetTrackDuration(unsigned int id, int* duration) = 0;
};

#endif  // TARQ_DMR_PLAYER_INTERFACE_H_
