#include "VondHspClient.h"

VondHspDlnaRequest::VondHspDlnaRequest() noexcept : contentFeatures_(false), transferMode_(kNoTransferMode) {}

void VondHspDlnaRequest::EnableGetContentFeatures(bool enable) noexcept { contentFeatures_ = enable; }
void VondHspDlnaRequest::SetTransferMode(int mode) noexcept { transferMode_ = mode; }

bool VondHspDlnaRequest::GetContentFeaturesEnabled() const noexcept { return contentFeatures_; }
int VondHspDlnaRequest::GetTransferMode() const noexcept { return transferMode_; }

VondHspDlnaResponse::VondHspDlnaResponse() noexcept : statusCode_(0) {}

int VondHspDlnaResponse::GetStatusCode() const noexcept { return statusCode_; }
const char* VondHspDlnaResponse::GetContentType() const noexcept { return contentType_.c_str(); }
const char* VondHspDlnaResponse::GetContentFeatures() const noexcept { return contentFeatures_.c_str(); }
