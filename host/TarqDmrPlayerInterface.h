#ifndef TARQ_DMR_PLAYER_INTERFACE_H_
#define TARQ_DMR_PLAYER_INTERFACE_H_

#include <jni.h>

// Result codes of the player. The numbers are a contract with the host and with the Java handler, which
// returns the same codes and may add its own.
enum TarqPlayerResult : int {
  kPlayerOk = 0,
  // The thread has no JNI environment and could not get one.
  kPlayerNoEnvironment = 1,
  kPlayerNotSupported = 2,
  // The handler's class was not found, or it has no method of that name and signature.
  kPlayerHandlerLookupFailed = 3,
  // The Java VM could not make a string or a reference.
  kPlayerOutOfMemory = 5,
  // A required string is null.
  kPlayerInvalidArgument = 9,
  // No handler is registered, or one is registered already.
  kPlayerInvalidState = 10,
};

// Plays media: every transport, rendering and connection action of a control point is a call of one
// operation. The call goes on to a Java object of the application, the handler (a TarqRendererHandler), which
// does the playing. Parameters have the names of the handler's parameters, some of them with a "p" in front.
// Returns: a TarqPlayerResult, or exactly what the handler's method returned. An operation with an out
//   parameter returns kPlayerOk when it stored what the handler returned, whatever that is; otherwise the out
//   parameter is left alone.
// Null: "required": a null string returns kPlayerInvalidArgument. "Optional": null reaches the handler as a
//   Java null. An out parameter is never null.
// Ownership: the player keeps a global reference to the handler, from `AddCb` to `RemoveCb`, and none of the
//   strings that it is given. A string that it returns belongs to the caller, who frees it with `free`.
// Threads: any, also several at once, attached to the Java VM or not, except for `AddCb` and `RemoveCb`. An
//   operation leaves its thread as it found it and blocks for as long as the handler takes.
// Units: ids, positions, states, volumes and the like are passed on unchanged; the host and the handler agree
//   on what they mean. Numbers arrive in Java with the same bits: an id above 2147483647 becomes negative.
// Errors: no Java exception may be pending when an operation is called, and none is when it returns.
class TarqDmrPlayerInterface {
 public:
  virtual ~TarqDmrPlayerInterface() = default;

  // Registers the handler.
  // Returns: kPlayerInvalidState when `handler` is null, or when there is one already, which then stays.
  // Threads: one inside the Java VM, with `env`; no other `AddCb` or `RemoveCb` may run.
  virtual int AddCb(JNIEnv* env, jobject handler) = 0;
  // Returns: kPlayerInvalidState when there is no handler.
  // Ownership: deletes the global reference to the handler. An operation that still runs would use it and crash
  //   the Java VM: wait until all have returned.
  // Threads: one inside the Java VM, with `env`; no other operation of the player may run.
  virtual int RemoveCb(JNIEnv* env) = 0;

  // What to play.
  // Null: the URI is required and may be empty; the metadata (DIDL-Lite) is optional; the content type (MIME)
  //   is optional, but required when URI and metadata are both there and not empty.
  virtual int SetDataSource(unsigned int id, const char* pCurrentURI, const char* pCurrentURIMetaData,
                            const char* pCurrentContentType) = 0;
  // What to play after it.
  // Null: URI and content type are required, the metadata is optional.
  // Errors: when the metadata cannot be made a Java string, the handler gets null.
  virtual int SetNextDataSource(unsigned int id, const char* pNextURI, const char* pNextURIMetaData,
                                const char* pNextContentType) = 0;
  // Null: required.
  // Units: "1" is normal speed.
  virtual int Start(unsigned int id, const char* pPlaySpeed) = 0;
  virtual int Stop(unsigned int id) = 0;
  virtual int Pause(unsigned int id) = 0;
  virtual int SeekTo(unsigned int id, int target) = 0;
  virtual int Next(unsigned int id) = 0;
  virtual int GetCurrentPosition(unsigned int id, int* position) = 0;
  virtual int GetState(unsigned int id, int* state) = 0;

  // Null: the channel ("Master", "LF") is required in the volume and mute operations, but not in the two in
  //   decibels, which are not supported.
  virtual int SetVolume(unsigned int id, const char* pChannel, unsigned int volume,
                        unsigned int qualifier) = 0;
  virtual int GetVolume(unsigned int id, const char* pChannel, int qualifier, unsigned int* volume) = 0;
  // Returns: kPlayerNotSupported, whatever the arguments, with or without a handler.
  virtual int SetVolumeDB(unsigned int id, const char* pChannel, int volume, int qualifier) = 0;
  virtual int GetVolumeDB(unsigned int id, const char* pChannel, int qualifier, int* volume) = 0;
  virtual int SetMute(unsigned int id, const char* pChannel, bool mute) = 0;
  virtual int GetMute(unsigned int id, const char* pChannel, bool& mute) = 0;

  // Returns: what TarqJniUtil::NewCString returns; libtarq's returns kPlayerInvalidArgument when the
  //   handler returned null.
  virtual int GetPlaySpeedList(unsigned int id, char** speeds) = 0;
  virtual int GetAction(unsigned int id, char** actions) = 0;

  // Null: these three pass a null string on to TarqJniUtil::NewJStringUTF8s; with libtarq's the
  //   result is kPlayerOutOfMemory.
  virtual int X_UpdateAudioSelection(unsigned int id, unsigned int number, const char* selection) = 0;
  virtual int X_UpdateVideoSelection(unsigned int id, unsigned int number, const char* selection) = 0;
  virtual int PrepareForConnection(unsigned int id, const char* protocolInfo) = 0;
  virtual int ConnectionComplete(unsigned int id) = 0;
  // Null: both strings are optional.
  virtual int SetBreakAuxStreamPlaylist(unsigned int id, int number, const char* playlist,
                                        const char* detail) = 0;
  virtual int SetBreakAuxStreamTrigger(unsigned int id, unsigned int number, long long trigger) = 0;
  virtual int GetTrackDuration(unsigned int id, int* duration) = 0;
};

#endif  // TARQ_DMR_PLAYER_INTERFACE_H_
