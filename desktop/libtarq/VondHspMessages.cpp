#include "VondHspClient.h"

VondHspDlnaRequest::VondHspDlnaRequest() noexcept = default;

void VondHspDlnaRequest::EnableGetContentFeatures(bool enable) noexcept { contentFeatures_ = enable; }
void VondHspDlnaRequest::SetTransferMode(int mode) noexcept { transferMode_ = mode; }

VondHspDlnaResponse::VondHspDlnaResponse() noexcept = default;

int VondHspDlnaResponse::GetStatusCode() const noexcept { return statusCode_; }
const char* VondHspDlnaResponse::GetContentType() const noexcept { return contentType_.c_str(); }
const char* VondHspDlnaResponse::GetContentFeatures() const noexcept { return contentFeatures_.c_str(); }
