#include "ResContest.h"

#include <string_view>

#include "FourthField.h"
#include "ResolutionProxy.h"
#include "VondNameValueList.h"

namespace {

PictureSize sizeOf(int32_t width, int32_t height) {
  // Modulo 2^32, as the points have always been counted.
  const auto area = static_cast<int32_t>(static_cast<uint32_t>(width) * static_cast<uint32_t>(height));
  if (area < 1) return {};
  if (width == kFullHdWidth && height == kFullHdHeight) return {.kind = PictureSize::kFullHd};
  if (width > kMaxSide || height > kMaxSide) return {.kind = PictureSize::kTooLarge};
  if (area > kFullHdArea) return {.kind = PictureSize::kAbove, .distance = area - kFullHdArea};
  if (area < kFullHdArea) return {.kind = PictureSize::kBelow, .distance = kFullHdArea - area};
  return {.kind = PictureSize::kSameArea};
}

}  // namespace

int bestPrimary(int count, const TarqDlnaResMetadata* records) {
  BestScore best;
  best.offerAll(count, records, &ResScore::primary);
  return best.index;
}

PictureSize measurePicture(const char* resolution) {
  if (resolution == nullptr) return {};
  resolutionProxy proxy{resolution, nullptr};
  const PictureSize size = sizeOf(proxy.GetWidth(), proxy.GetHeight());
  TARQ_Resolution_Destroy(proxy.parsed);
  return size;
}

void NearestFullHd::offer(int candidate, const PictureSize& size) {
  if (size.kind == PictureSize::kAbove && size.distance < aboveDistance_) {
    aboveDistance_ = size.distance;
    above_ = candidate;
  }
  if (size.kind == PictureSize::kBelow && size.distance < belowDistance_) {
    belowDistance_ = size.distance;
    below_ = candidate;
  }
}

bool declaresByteSeek(const char* fourthField) {
  const VondPI4thField parameters(fourthField);
  const char* operations = parameters.IsValid() ? parameters.GetParameter(kOperations) : nullptr;
  if (operations == nullptr) return false;
  const std::string_view value = operations;
  return std::string_view("01").starts_with(value) || std::string_view("11").starts_with(value);
}
