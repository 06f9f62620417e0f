#include "ContentDirectory.h"

#include <charconv>

#include "CommandError.h"
#include "XmlPage.h"

namespace {

constexpr std::string_view kServicePrefix = "urn:schemas-upnp-org:service:ContentDirectory:";

std::string trimmed(std::string_view text) {
  const size_t begin = text.find_first_not_of(" \t\r\n");
  return begin == text.npos ? ""
                            : std::string(text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin));
}

std::string childText(pugi::xml_node under, const char* name) {
  return trimmed(findElement(under, name).child_value());
}

int64_t numberIn(pugi::xml_node under, const char* name) {
  const std::string text = childText(under, name);
  int64_t number = -1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool isContentDirectory(pugi::xml_node node) {
  return localName(node) == "service" && childText(node, "serviceType").starts_with(kServicePrefix);
}

std::string escapedXml(std::string_view text) {
  std::string escaped;
  for (const char c : text) c == '&' ? escaped += "&amp;" : c == '<' ? escaped += "&lt;" : escaped += c;
  return escaped;
}

// Source: UPnP Device Architecture 1.0, 3.2.2.
std::string failureWords(pugi::xml_node answer, long status) {
  const std::string code = childText(answer, "errorCode");
  if (code.empty()) return "status " + std::to_string(status);
  const std::string words = childText(answer, "errorDescription");
  return "UPnP error " + code + (words.empty() ? "" : ": " + words);
}

std::string fetchDescription(HttpClient& http, const std::string& url) {
  try {
    const HttpAnswer answer = http.get(url);
    if (answer.status == 200) return answer.body;
    throw CommandError("cannot read " + url + ": status " + std::to_string(answer.status));
  } catch (const HttpError& error) {
    throw CommandError("cannot read " + url + ": " + error.what());
  }
}

// A document with nothing but this in the answer.
pugi::xml_node resultOf(pugi::xml_document& document, const std::string& answer, const std::string& action) {
  std::string problem;
  if (!parsePage(document, answer, pugi::parse_default | pugi::parse_ws_pcdata_single, &problem))
    throw HttpError(HttpError::Kind::kTooLarge, problem);
  const pugi::xml_node result = findElement(document, action + "Response");
  if (!result || !problem.empty())
    throw HttpError(HttpError::Kind::kFailed, problem.empty() ? "it is not an answer to " + action : problem);
  return result;
}

}  // namespace

ServerDescription describeServer(HttpClient& http, const std::string& url) {
  const std::string text = fetchDescription(http, url);
  pugi::xml_document document;
  std::string problem;
  parsePage(document, text, pugi::parse_default, &problem);
  if (!problem.empty()) throw CommandError("cannot use " + url + ": " + problem);
  const pugi::xml_node service = document.find_node(isContentDirectory);
  if (!service)
    throw CommandError(url + " is not the description of a media server: it has no ContentDirectory");
  const pugi::xml_node device = service.parent().parent();
  const std::string base = childText(document, "URLBase");
  const std::string control = resolvedUrl(base.empty() ? url : base, childText(service, "controlURL"));
  if (control.empty()) throw CommandError(url + " has no usable address of its ContentDirectory");
  if (hostOf(control) != hostOf(url))
    throw CommandError(url + " has its ContentDirectory on another host, which is not asked: " + control);
  return {url, childText(device, "friendlyName"), childText(device, "modelName"), control,
          childText(service, "serviceType")};
}

BrowsePage ContentDirectory::browse(const std::string& container, int64_t start, int64_t count) {
  const std::string answer =
      act("Browse",
          "<ObjectID>" + escapedXml(container) +
              "</ObjectID><BrowseFlag>BrowseDirectChildren</BrowseFlag><Filter>*</Filter><StartingIndex>" +
              std::to_string(start) + "</StartingIndex><RequestedCount>" + std::to_string(count) +
              "</RequestedCount><SortCriteria></SortCriteria>");
  pugi::xml_document document;
  const pugi::xml_node result = resultOf(document, answer, "Browse");
  BrowsePage page;
  for (const pugi::xml_node piece : findElement(result, "Result")) page.didl += piece.value();
  page.returned = numberIn(result, "NumberReturned");
  page.total = numberIn(result, "TotalMatches");
  page.updateId = childText(result, "UpdateID");
  return page;
}

std::string ContentDirectory::systemUpdateId() {
  pugi::xml_document document;
  return childText(resultOf(document, act("GetSystemUpdateID", ""), "GetSystemUpdateID"), "Id");
}

// Returns: the answer of an action that was done.
std::string ContentDirectory::act(const std::string& action, const std::string& arguments) {
  const std::string& type = server_.serviceType;
  HttpAnswer answer =
      http_.postSoap(server_.controlUrl, type + "#" + action,
                     "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<s:Envelope "
                     "xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                     "s:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\"><s:Body><u:" +
                         action + " xmlns:u=\"" + escapedXml(type) + "\">" + arguments + "</u:" + action +
                         "></s:Body></s:Envelope>");
  if (answer.status == 200) return std::move(answer.body);
  pugi::xml_document document;
  std::string ignored;
  parsePage(document, answer.body, pugi::parse_default, &ignored);
  throw HttpError(HttpError::Kind::kFailed, failureWords(document, answer.status));
}
