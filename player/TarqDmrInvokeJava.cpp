#include "TarqDmrInvokeJava.h"

#include <android/log.h>

#include <new>

#include "HandlerCall.h"
#include "TarqDmrPlugin.h"

namespace {

int invalidArgument(const char* message) {
  logPlayer(ANDROID_LOG_WARN, message);
  return kPlayerInvalidArgument;
}

int noChannel() { return invalidArgument("Invalid Argument: pChannel is NULL"); }

bool isPresent(const char* string) { return string != nullptr && *string != '\0'; }

}  // namespace

TarqDmrInvokeJava* TarqDmrInvokeJava::GetInstance() {
  static TarqDmrInvokeJava* const instance = new (std::nothrow) TarqDmrInvokeJava();
  return instance;
}

TarqDmrPlayerInterface* GetPlayer() { return TarqDmrInvokeJava::GetInstance(); }

int TarqDmrInvokeJava::AddCb(JNIEnv* env, jobject handler) {
  if (HandlerCall::s_jCallback.load() != nullptr) return kPlayerInvalidState;
  if (handler == nullptr) {
    logPlayer(ANDROID_LOG_WARN, "Invalid State: jobject is NULL");
    return kPlayerInvalidState;
  }
  const jobject reference = env->NewGlobalRef(handler);
  if (reference == nullptr) {
    logPlayer(ANDROID_LOG_WARN, "No Memory: NewGlobalRef failed");
    return kPlayerOutOfMemory;
  }
  HandlerCall::s_jCallback.store(reference);
  return kPlayerOk;
}

int TarqDmrInvokeJava::RemoveCb(JNIEnv* env) {
  const jobject reference = HandlerCall::s_jCallback.load();
  if (reference == nullptr) {
    logPlayer(ANDROID_LOG_WARN, kNoHandlerMessage);
    return kPlayerInvalidState;
  }
  env->DeleteGlobalRef(reference);
  HandlerCall::s_jCallback.store(nullptr);
  return kPlayerOk;
}

int TarqDmrInvokeJava::SetDataSource(unsigned int id, const char* pCurrentURI,
                                     const char* pCurrentURIMetaData, const char* pCurrentContentType) {
  if (pCurrentURI == nullptr) return invalidArgument("Invalid Argument: pCurrentURI is NULL");
  if (isPresent(pCurrentURI) && pCurrentContentType == nullptr && isPresent(pCurrentURIMetaData))
    return invalidArgument("Invalid Argument: pCurrentContentType is NULL");
  return HandlerCall(handlerMethod("setDataSource"))
      .status(id, requiredString(pCurrentURI), optionalString(pCurrentURIMetaData),
              optionalString(pCurrentContentType));
}

int TarqDmrInvokeJava::SetNextDataSource(unsigned int id, const char* pNextURI, const char* pNextURIMetaData,
                                         const char* pNextContentType) {
  if (pNextURI == nullptr) return invalidArgument("Invalid Argument: pNextURI is NULL");
  if (pNextContentType == nullptr) return invalidArgument("Invalid Argument: pNextContentType is NULL");
  return HandlerCall(handlerMethod("setNextDataSource"))
      .status(id, requiredString(pNextURI), dispensableString(pNextURIMetaData),
              requiredString(pNextContentType));
}

int TarqDmrInvokeJava::Start(unsigned int id, const char* pPlaySpeed) {
  if (pPlaySpeed == nullptr) return invalidArgument("Invalid Argument: pPlaySpeed is NULL");
  return HandlerCall(handlerMethod("start")).status(id, requiredString(pPlaySpeed));
}

int TarqDmrInvokeJava::Stop(unsigned int id) { return HandlerCall(handlerMethod("stop")).status(id); }

int TarqDmrInvokeJava::Pause(unsigned int id) { return HandlerCall(handlerMethod("pause")).status(id); }

int TarqDmrInvokeJava::SeekTo(unsigned int id, int target) {
  return HandlerCall(handlerMethod("seekTo")).status(id, target);
}

int TarqDmrInvokeJava::Next(unsigned int id) { return HandlerCall(handlerMethod("next")).status(id); }

int TarqDmrInvokeJava::GetCurrentPosition(unsigned int id, int* position) {
  return HandlerCall(handlerMethod("getCurrentPosition")).value(position, id);
}

int TarqDmrInvokeJava::GetState(unsigned int id, int* state) {
  return HandlerCall(handlerMethod("getState")).value(state, id);
}

int TarqDmrInvokeJava::SetVolume(unsigned int id, const char* pChannel, unsigned int volume,
                                 unsigned int qualifier) {
  if (pChannel == nullptr) return noChannel();
  return HandlerCall(handlerMethod("setVolume")).status(id, requiredString(pChannel), volume, qualifier);
}

int TarqDmrInvokeJava::GetVolume(unsigned int id, const char* pChannel, int qualifier, unsigned int* volume) {
  if (pChannel == nullptr) return noChannel();
  return HandlerCall(handlerMethod("getVolume")).value(volume, id, requiredString(pChannel), qualifier);
}

int TarqDmrInvokeJava::SetVolumeDB(unsigned int, const char*, int, int) { return kPlayerNotSupported; }

int TarqDmrInvokeJava::GetVolumeDB(unsigned int, const char*, int, int*) { return kPlayerNotSupported; }

int TarqDmrInvokeJava::SetMute(unsigned int id, const char* pChannel, bool mute) {
  if (pChannel == nullptr) return noChannel();
  return HandlerCall(handlerMethod("setMute")).status(id, requiredString(pChannel), mute);
}

int TarqDmrInvokeJava::GetMute(unsigned int id, const char* pChannel, bool& mute) {
  if (pChannel == nullptr) return noChannel();
  return HandlerCall(handlerMethod("getMute")).flag(&mute, id, requiredString(pChannel));
}

int TarqDmrInvokeJava::GetPlaySpeedList(unsigned int id, char** speeds) {
  return HandlerCall(handlerMethod("getPlaySpeedList")).string(speeds, id);
}

int TarqDmrInvokeJava::GetAction(unsigned int id, char** actions) {
  return HandlerCall(handlerMethod("getAction")).string(actions, id);
}

int TarqDmrInvokeJava::X_UpdateAudioSelection(unsigned int id, unsigned int number, const char* selection) {
  return HandlerCall(handlerMethod("updateAudioSelection")).status(id, number, requiredString(selection));
}

int TarqDmrInvokeJava::X_UpdateVideoSelection(unsigned int id, unsigned int number, const char* selection) {
  return HandlerCall(handlerMethod("updateVideoSelection")).status(id, number, requiredString(selection));
}

int TarqDmrInvokeJava::PrepareForConnection(unsigned int id, const char* protocolInfo) {
  return HandlerCall(handlerMethod("prepareForConnection")).status(id, requiredString(protocolInfo));
}

int TarqDmrInvokeJava::ConnectionComplete(unsigned int id) {
  return HandlerCall(handlerMethod("connectionComplete")).status(id);
}

int TarqDmrInvokeJava::SetBreakAuxStreamPlaylist(unsigned int id, int number, const char* playlist,
                                                 const char* detail) {
  return HandlerCall(handlerMethod("setBreakAuxStreamPlaylist"))
      .status(id, number, optionalString(playlist), optionalString(detail));
}

int TarqDmrInvokeJava::SetBreakAuxStreamTrigger(unsigned int id, unsigned int number, long long trigger) {
  return HandlerCall(handlerMethod("setBreakAuxStreamTrigger")).status(id, number, trigger);
}

int TarqDmrInvokeJava::GetTrackDuration(unsigned int id, int* duration) {
  return HandlerCall(handlerMethod("getTrackDuration")).value(duration, id);
}
