#include "TarqResourceChecker.h"

#include <android/log.h>

#include <cstring>
#include <memory>
#include <new>

#include "CheckRules.h"
#include "FourthField.h"
#include "TarqCdsAccess.h"
#include "TarqDlnaResMetadata.h"
#include "TarqDlnaResSelection.h"
#include "TarqDmrMediaProfile.h"
#include "VondMimeType.h"
#include "VondNameValueList.h"
#include "VondURL.h"

namespace {

constexpr char kLogTag[] = "Tarq";

const char* orNull(const char* text) { return text == nullptr ? "(null)" : text; }

class Lock {
 public:
  explicit Lock(VondMutex& mutex) : mutex_(mutex) { mutex_.Lock(); }
  ~Lock() { mutex_.Unlock(); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  VondMutex& mutex_;
};

struct DestroyResult {
  void operator()(TARQ_Result* result) const { TARQ_Result_DestroyResult(result); }
};

const char* orEmpty(const char* text) { return text == nullptr ? "" : text; }

// The seek operations that a fourth field declares; empty when it declares none.
void readOperation(const char* fourthField, VondString& operation) {
  const VondPI4thField parameters(fourthField);
  operation = orEmpty(parameters.IsValid() ? parameters.GetParameter(kOperations) : nullptr);
}

}  // namespace

TarqResourceChecker::~TarqResourceChecker() { delete ownedFormat_; }

TarqResourceChecker::TarqResource& TarqResourceChecker::startWork() {
  if (!workingIsPublished_) return *working_;
  workingIsPublished_ = false;
  const TarqResource& published = *working_;
  working_ = &resources_[working_ == resources_ ? 1 : 0];
  return *working_ = published;
}

int TarqResourceChecker::CheckResource(const char* uri, const char* metadata) {
  const std::unique_ptr<VondURL> url(VondURL::Parse(uri, nullptr));
  if (url == nullptr) return checkFully(uri, metadata, nullptr, false);

  const char* host = url->GetHost();
  const bool homeNetwork = isHomeNetwork(host);
  if (!homeNetwork)
    __android_log_print(ANDROID_LOG_DEBUG, kLogTag, "\nInternet Content URL %s Request", host);
  if (const QuickTest* test = findQuickTest(uri, metadata, homeNetwork)) {
    result_.uri = uri;
    result_.mimeType = mimeTypeOf(*test, metadata);
    return kAccepted;
  }
  return checkFully(uri, metadata, host, homeNetwork);
}

int TarqResourceChecker::checkFully(const char* uri, const char* metadata, const char* host,
                                    bool homeNetwork) {
  TarqResource& resource = startWork();
  xMraCategory category = kCategoryUnknown;
  const bool chosen = selectResource(metadata, resource, category) == 0;
  if (!chosen) resource.uri = uri;

  if (isProbed(homeNetwork, metadata)) {
    const int result = getResourceHeader(resource, category);
    __android_log_print(ANDROID_LOG_DEBUG, kLogTag, "\nHome Network Content URL %s Request", host);
    if (result != kAccepted) return result;
  }
  if (!chosen && getContentFormat(resource) != 0) return kNothingPlayable;
  return publish(resource);
}

int TarqResourceChecker::publish(const TarqResource& resource) {
  delete ownedFormat_;
  ownedFormat_ = new (std::nothrow) VondString(resource.contentFormat);
  workingIsPublished_ = true;
  result_ = {resource.uri.c_str(),      resource.mimeType.c_str(),  resource.additionalInfo.c_str(),
             resource.resIndex,         resource.size.c_str(),      resource.duration.c_str(),
             resource.reserved.c_str(), resource.operation.c_str(), ownedFormat_};
  return kAccepted;
}

TarqResourceInfo* TarqResourceChecker::GetResource() {
  result_.resIndex = working_->resIndex;
  result_.contentFormat = ownedFormat_;
  return &result_;
}

void TarqResourceChecker::Cancel() {
  const Lock lock(mutex_);
  cancelled_ = true;
  if (client_ != nullptr) client_->Cancel();
}

// Returns: 0 when a `res` element was chosen, 1 when none was.
int TarqResourceChecker::selectResource(const char* metadata, TarqResource& resource,
                                        xMraCategory& category) {
  const std::unique_ptr<TARQ_Result, DestroyResult> result(TARQ_Result_ParseCds(cdsText(metadata)));
  if (result == nullptr || TARQ_Result_NumOfObjects(result.get()) < 1) return 1;
  const TARQ_Object* object = TARQ_Result_GetObject(result.get(), 0);
  const int count = TARQ_Object_NumOfProperties(object, cdsText("res"));
  if (count < 1) return 1;
  const std::unique_ptr<TarqDlnaResMetadata[]> records(new (std::nothrow)
                                                           TarqDlnaResMetadata[static_cast<size_t>(count)]);
  if (records == nullptr) return 1;

  int selected = -1;
  TarqDlnaResSelection(region_).selectMediaResIndex(object, records.get(), count, &selected, 0);
  resource.resIndex = selected;
  if (selected < 0) {
    __android_log_print(ANDROID_LOG_DEBUG, kLogTag, "\nRes Not Supported");
    return 1;
  }
  const auto index = static_cast<unsigned int>(selected);
  const TarqDlnaResMetadata& record = records[index];
  resource.uri = resUrl(object, index);
  resource.mimeType = record.mimeType;
  resource.additionalInfo = record.fourthField;
  resource.contentFormat = record.format;
  category = record.category;
  __android_log_print(ANDROID_LOG_ERROR, kLogTag, "Selected Res [%d][%s][%s][%s][%s]", selected,
                      orNull(resource.uri.c_str()), orNull(resource.mimeType.c_str()),
                      orNull(resource.additionalInfo.c_str()), orNull(resource.contentFormat.c_str()));
  resource.size = orEmpty(resAttribute(object, index, "size"));
  resource.duration = orEmpty(resAttribute(object, index, "duration"));
  resource.reserved = "";
  readOperation(record.fourthField, resource.operation);
  return 0;
}

// Asks the server and returns what its answer means. `response` is the answer when that is kAccepted.
TarqCheckResult TarqResourceChecker::ask(const char* uri, MediaCategory category,
                                         VondHspDlnaResponse& response) {
  {
    const Lock lock(mutex_);
    if (cancelled_) return kCancelled;
    client_ = new (std::nothrow) VondHspClient(true);
    if (client_ == nullptr) return kNoHttpClient;
  }
  VondHspDlnaRequest request;
  request.EnableGetContentFeatures(true);
  request.SetTransferMode(transferModeOf(category));
  const int clientError =
      client_->Head(uri, request, &response);  // unlocked, so that `Cancel` reaches the client
  const int status = response.GetStatusCode();
  client_->Close();
  {
    const Lock lock(mutex_);
    delete client_;
    client_ = nullptr;
  }
  if (clientError != 0) {
    __android_log_print(ANDROID_LOG_DEBUG, kLogTag, "\nHTTP HEAD FAILED (%d) %s", clientError, uri);
  }
  const TarqCheckResult failed = resultOfClientError(clientError);
  return failed != kAccepted ? failed : resultOfStatus(status);
}

int TarqResourceChecker::getResourceHeader(TarqResource& resource, xMraCategory& category) {
  const char* uri = resource.uri.c_str();
  if (!isHttpUri(uri)) return kNotHttp;
  VondHspDlnaResponse response;
  const TarqCheckResult result = ask(uri, category, response);
  if (result != kAccepted) return result;
  if (response.GetContentType() != nullptr) resource.mimeType = response.GetContentType();
  resource.additionalInfo = orEmpty(response.GetContentFeatures());
  return kAccepted;
}

// Looks up the format group by the server's answer.
// Returns: 0 found, 1 not found.
int TarqResourceChecker::getContentFormat(TarqResource& resource) {
  const char* mimeType = resource.mimeType.c_str();
  if (mimeType == nullptr || !VondMimeType(mimeType).IsValid()) return 1;
  const VondPI4thField parameters(orEmpty(resource.additionalInfo.c_str()));
  const FormatKey key = formatKeyOf(mimeType, parameters);

  TarqDmrMediaProfileTableIterator rows;
  while (const TarqDmrMediaProfile* row = rows.Next()) {
    const char* wanted = row->pnName != nullptr ? key.profile : key.mimeType;
    if (wanted == nullptr || std::strncmp(row->profile, wanted, 1024) != 0) continue;
    resource.contentFormat = row->formatGroup;
    return 0;
  }
  return 1;
}
