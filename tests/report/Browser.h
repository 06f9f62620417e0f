#ifndef TARQ_TESTS_BROWSER_H_
#define TARQ_TESTS_BROWSER_H_

#include <httplib.h>

#include <csignal>
#include <nlohmann/json.hpp>
#include <regex>

#include "Program.h"
#include "RendererProgram.h"

// Chromium without a window, driven by WebDriver. One for all tests.
// Source: WebDriver, W3C Recommendation; the commands with "goog" are Chromium's own.
class Browser {
 public:
  using Json = nlohmann::json;

  static bool isInstalled() { return std::system("command -v chromedriver chromium > /dev/null") == 0; }
  static Browser& shared() {
    static Browser browser;
    return browser;
  }

  // Forgets the messages of the page before.
  void open(const std::string& url, int width = 1200, bool dark = false) {
    devTools("Emulation.setDeviceMetricsOverride",
             {{"width", width}, {"height", 900}, {"deviceScaleFactor", 1}, {"mobile", false}});
    const char* scheme = dark ? "dark" : "light";
    devTools("Emulation.setEmulatedMedia",
             {{"features", {{{"name", "prefers-color-scheme"}, {"value", scheme}}}}});
    messages();
    post("/url", {{"url", url}});
  }
  // Returns: what the script returns. A function of it is called without arguments.
  Json run(const std::string& script) {
    return post("/execute/sync", {{"script", script}, {"args", Json::array()}});
  }
  // Presses a key on the element that has the focus; "\uE007" is Enter, "\uE004" Tab.
  void press(const char* key) {
    const Json active = get("/element/active");
    post("/element/" + active.begin()->get<std::string>() + "/value", {{"text", key}});
  }
  // Returns: the errors and warnings of the page, each once.
  Json messages() { return post("/se/log", {{"type", "browser"}}); }

 private:
  Browser()
      : child_(startProgram({"--port=0"}, in_.descriptor(), out_.descriptor(), err_.descriptor(),
                            "chromedriver")) {
    std::smatch port;
    const auto listens = [&] {
      output_ = out_.content();
      return std::regex_search(output_, port, std::regex("successfully on port ([0-9]+)"));
    };
    if (!becomesTrue(listens)) ADD_FAILURE() << output_ << err_.content();
    http_ = std::make_unique<httplib::Client>("127.0.0.1", std::stoi(port[1]));
    http_->set_read_timeout(60);
    const Json arguments = {"--headless=new",
                            "--no-sandbox",
                            "--disable-gpu",
                            "--disable-quic",
                            "--no-first-run",
                            "--disable-background-networking",
                            "--disable-component-update",
                            "--disable-sync"};
    const Json wanted = {{"goog:chromeOptions", {{"args", arguments}}},
                         {"goog:loggingPrefs", {{"browser", "WARNING"}}}};
    session_ =
        "/session/" +
        send("/session", {{"capabilities", {{"alwaysMatch", wanted}}}})["sessionId"].get<std::string>();
  }
  ~Browser() {
    http_->Delete(session_);
    ::kill(child_, SIGTERM);
    waitFor(child_);
  }

  static Json valueOf(const httplib::Result& answer) {
    if (!answer) throw std::runtime_error("the browser does not answer");
    Json value = Json::parse(answer->body)["value"];
    if (answer->status != 200) throw std::runtime_error(value.dump());
    return value;
  }
  Json send(const std::string& path, const Json& body) {
    return valueOf(http_->Post(path, body.dump(), "application/json"));
  }
  Json post(const std::string& path, const Json& body) { return send(session_ + path, body); }
  Json get(const std::string& path) { return valueOf(http_->Get(session_ + path)); }
  void devTools(const std::string& command, const Json& parameters) {
    post("/goog/cdp/execute", {{"cmd", command}, {"params", parameters}});
  }

  MemoryFile in_, out_, err_;
  const pid_t child_;
  std::string output_;
  std::unique_ptr<httplib::Client> http_;
  std::string session_;
};

#endif  // TARQ_TESTS_BROWSER_H_
