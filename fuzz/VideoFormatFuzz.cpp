// The format of a video by MIME type and extension, and the extension of a URL.
// Input: lines with the region, the MIME type and the extension, then the URL.
#include <string>

#include "FuzzInput.h"
#include "TarqDlnaResSelection.h"

namespace {

constexpr int kNoWeight = -7;

struct Format {
  const char* name;
  int weight = kNoWeight;

  bool operator==(const Format&) const = default;
};

Format formatOf(int32_t region, const char* mimeType, const char* extension) {
  Format format;
  format.name = TarqDlnaResSelection(region).getVideoCodecFormat(mimeType, extension, &format.weight);
  if (format.name == nullptr) {
    require(format.weight == kNoWeight, "without a format the weight stays");
  } else {
    require(format.weight == 100 || format.weight == 200, "a format is guessed or identified");
    require(region == 16 || !sameText(format.name, "RMVB"), "RealMedia is played in its region only");
  }
  return format;
}

void checkFormat(int32_t region, const Text& mimeType, const Text& extension) {
  const Format format = formatOf(region, mimeType.c_str(), extension.c_str());
  const Format byMimeType = formatOf(region, mimeType.c_str(), nullptr);
  require(formatOf(region, nullptr, extension.c_str()).name == nullptr, "no MIME type, no format");
  require(formatOf(region, mimeType.c_str(), "no such extension") == byMimeType,
          "an unknown extension is as good as none");
  require(byMimeType.name == nullptr || format.name != nullptr, "an extension takes no format away");
  std::string otherCase(extension.view());
  for (char& c : otherCase)
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) c = static_cast<char>(c ^ ('a' ^ 'A'));
  require(formatOf(region, mimeType.c_str(), otherCase.c_str()) == format,
          "the case of an extension is all the same");
}

void checkExtension(const Text& url) {
  VondString extension("kept");
  const int code = TarqDlnaResSelection::getFileExtension(url.c_str(), extension);
  const size_t slash = url.view().rfind('/');
  if (slash == std::string_view::npos)
    return require(code == -1 && sameText(extension.c_str(), "kept"),
                   "without a slash the extension is left alone");
  require(code == 0 && extension.c_str() != nullptr, "with a slash there is one, if an empty one");
  const std::string_view found = extension.c_str();
  require(url.view().substr(slash).find(found) != std::string_view::npos, "it is a part of the last segment");
  require(found.find('?') == std::string_view::npos, "it ends before the query");
  const std::string longer = "http://h.a/b.c?d/" + std::string(url.view().substr(slash)) + "?query";
  VondString again;
  TarqDlnaResSelection::getFileExtension(longer.c_str(), again);
  require(again == extension, "what comes before the last segment, and a query, change nothing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzInput input(data, size);
  const int32_t region = input.number();
  const Text mimeType(input.line());
  const Text extension(input.line());
  checkFormat(region, mimeType, extension);
  checkExtension(Text(input.rest()));
  return 0;
}
