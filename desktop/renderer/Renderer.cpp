#include "Renderer.h"

#include <csignal>
#include <future>

#include "AccessDecision.h"
#include "ChoiceWords.h"
#include "CommandError.h"
#include "Description.h"
#include "DescriptionFolder.h"
#include "EventSender.h"
#include "InstalledFiles.h"
#include "MainLoop.h"
#include "PageData.h"
#include "Parts.h"
#include "PlayerSession.h"
#include "ProgramPath.h"
#include "Rendering.h"
#include "RequestLog.h"
#include "TarqJniUtil.h"
#include "Transport.h"
#include "TransportValues.h"
#include "UpnpDevice.h"
#include "Worker.h"

namespace {

using Clock = std::chrono::steady_clock;

// The renderer at work: actions come in, go to the worker that may wait for a player or a server, and are answered
// and logged on the main loop.
class RunningRenderer : public UpnpDeviceOwner {
 public:
  RunningRenderer(const RendererOptions& options, TarqDmrPluginManager& host);
  ~RunningRenderer() override;

  void run(const NetworkInterface& interface);

 private:
  void act(std::unique_ptr<PendingAction> action) override;
  void refused(const PendingAction& action) override;
  std::string eventedValue(const Service& service, const std::string& variable) override;
  std::string pageData(int64_t after) override;

  PlayerChoice choosePlayer() const;
  void startPlayer();
  void writeDescription(const std::string& hexDigits);
  void performOn(Worker& worker, const std::shared_ptr<PendingAction>& action);
  std::shared_ptr<const LoggedChoice> explainChoice() const;
  void keep(const PendingAction& done, std::chrono::microseconds took, const LoggedChoice* choice);

  const RendererOptions& options_;
  TarqDmrPluginManager& host_;
  TarqDmrParamsInterface& params_;
  const std::string sink_;
  const std::string name_;
  MainLoop loop_;
  const RequestLog log_;
  RequestHistory history_;
  AccessDecision decision_;
  AccessLists access_;
  EventSender transportEvents_;
  EventSender renderingEvents_;
  Transport transport_;
  Rendering rendering_;
  RendererParts parts_;
  DescriptionFolder folder_;
  std::unique_ptr<UpnpDevice> device_;
  std::unique_ptr<PlayerSession> session_;  // made, used and ended on transportWorker_
  std::unique_ptr<Worker> transportWorker_;
  std::unique_ptr<Worker> renderingWorker_;
};

std::string readSink(TarqDmrParamsInterface& params, int32_t region) {
  params.SetCurrentRegion(region);
  return params.GetSinkProtocolInfo();
}

void perform(RendererParts& parts, PendingAction& action) {
  try {
    action.call.action().run(parts, action.call);
  } catch (const ActionError& error) {
    action.error = error;
  } catch (const std::bad_alloc&) {
    action.error = ActionError{603};
  } catch (const std::exception&) {
    action.error = ActionError{501};
  }
}

std::chrono::microseconds since(Clock::time_point begun) {
  return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begun);
}

RunningRenderer::RunningRenderer(const RendererOptions& options, TarqDmrPluginManager& host)
    : options_(options),
      host_(host),
      params_(*host.GetParams()),
      sink_(readSink(params_, options.region)),
      name_(options.name.value_or(host.GetSpec()->GetDefaultFriendlyName())),
      log_(options.json, options.explain),
      decision_(options, [this](const std::string& words) { loop_.post([=, this] { log_.note(words); }); }),
      access_(*host.GetSpec(), *host.GetDeviceNac(), decision_),
      transportEvents_(
          loop_, kTransportEvents, [this] { return toldTransportValues(transport_.snapshot()); },
          [this](const std::string& text) { device_->notify(kAvTransport, "LastChange", text); }),
      renderingEvents_(
          loop_, kRenderingEvents, [this] { return toldRenderingValues(rendering_.state()); },
          [this](const std::string& text) { device_->notify(kRenderingControl, "LastChange", text); }),
      transport_(params_, [this] { transportEvents_.changed(); }),
      rendering_([this] { renderingEvents_.changed(); }),
      parts_{transport_, rendering_, sink_} {}

// The player's handler is taken away only when no action can reach it any more.
RunningRenderer::~RunningRenderer() {
  transport_.cancelChecks();
  if (renderingWorker_ != nullptr) renderingWorker_->post([] { TarqJniUtil::DetachVM(); });
  renderingWorker_.reset();
  if (transportWorker_ != nullptr) transportWorker_->post([this] { session_.reset(); });
  transportWorker_.reset();
}

void RunningRenderer::run(const NetworkInterface& interface) {
  startPlayer();
  const int defaultPort = host_.GetSpec()->GetPortNumber();
  const int port = options_.port.value_or(defaultPort);
  writeDescription(distinctDigits(interface.hexDigits, port - defaultPort));
  device_ = std::make_unique<UpnpDevice>(interface, port, folder_.path().string(), access_, *this);
  device_->announce();
  log_.note("the renderer is at " + device_->descriptionUrl() + " on " + interface.name);
  loop_.run();
  log_.note("stopping");
}

PlayerChoice RunningRenderer::choosePlayer() const {
  PlayerChoice choice = options_.player;
  if (!choice.name.empty() || !choice.program.empty()) return choice;
  choice.name = findOnPath("mpv").empty() ? "simulated" : "mpv";
  log_.note(choice.name == "mpv" ? "mpv plays"
                                 : "mpv is not installed: the player is simulated, nothing is heard");
  return choice;
}

void RunningRenderer::startPlayer() {
  renderingWorker_ = std::make_unique<Worker>();
  transportWorker_ = std::make_unique<Worker>([this] { transport_.poll(); });
  const auto start = std::make_shared<std::packaged_task<void()>>([this] {
    session_ = std::make_unique<PlayerSession>(*host_.GetPlayer(), choosePlayer());
    transport_.begin(*host_.GetPlayer(), session_->handler());
    rendering_.begin(*host_.GetPlayer());
  });
  transportWorker_->post([start] { (*start)(); });
  start->get_future().get();
  // Attached to the VM once, not for each volume.
  renderingWorker_->post([] {
    int attached = 0;
    TarqJniUtil::GetJNIEnv(&attached);
  });
}

void RunningRenderer::writeDescription(const std::string& hexDigits) {
  const TarqDmrSpecInterface& settings = *host_.GetSpec();
  folder_.write("device.xml", deviceDescription(settings, name_, makeUdn(settings, hexDigits)));
  for (const Service* service : kServices) {
    folder_.write(std::string(service->name) + ".xml", serviceDescription(*service, transport_.playSpeeds()));
  }
  folder_.copyFrom(installedFile("icons"));
}

void RunningRenderer::act(std::unique_ptr<PendingAction> action) {
  const Action& row = action->call.action();
  if (row.endsCheck) transport_.cancelChecks();
  action->call.checkTicket = transport_.checkTicket();
  if (row.runsOn == RunsOn::kTransport) return performOn(*transportWorker_, std::move(action));
  if (row.runsOn == RunsOn::kRendering) return performOn(*renderingWorker_, std::move(action));
  const Clock::time_point begun = Clock::now();
  perform(parts_, *action);
  action->send(*action);
  keep(*action, since(begun), nullptr);
}

void RunningRenderer::refused(const PendingAction& action) { keep(action, {}, nullptr); }

void RunningRenderer::keep(const PendingAction& done, std::chrono::microseconds took,
                           const LoggedChoice* choice) {
  log_.action(done, took, choice);
  history_.add(done, took, choice);
}

void RunningRenderer::performOn(Worker& worker, const std::shared_ptr<PendingAction>& action) {
  worker.post([this, action, begun = Clock::now()] {
    const bool checksSource = action->call.action().checksSource;
    const auto earlier = checksSource ? transport_.lastCheck() : nullptr;
    perform(parts_, *action);
    const std::chrono::microseconds took = since(begun);
    loop_.post([action] { action->send(*action); });
    const bool checked = checksSource && transport_.lastCheck() != earlier;  // not an empty URI
    const auto choice = checked ? explainChoice() : nullptr;
    loop_.post([this, action, took, choice] { keep(*action, took, choice.get()); });
  });
}

// The plug-in's choice once more, in words: the server is not asked again.
std::shared_ptr<const LoggedChoice> RunningRenderer::explainChoice() const {
  const auto checked = transport_.lastCheck();
  return std::make_shared<const LoggedChoice>(LoggedChoice{
      checked,
      ::explainChoice(params_, checked->uri.c_str(), checked->didl.c_str(), options_.region, log_.detail())});
}

std::string RunningRenderer::eventedValue(const Service& service, const std::string& variable) {
  if (&service == &kAvTransport) return transportEvents_.everything();
  if (&service == &kRenderingControl) return renderingEvents_.everything();
  if (variable == "SinkProtocolInfo") return sink_;
  return variable == "CurrentConnectionIDs" ? "0" : "";
}

std::string RunningRenderer::pageData(int64_t after) {
  return ::pageData(name_, transport_.snapshot(), rendering_.state(), history_, after);
}

NetworkInterface chooseInterface(const RendererOptions& options, const TarqDmrSpecInterface& settings) {
  if (!options.interfaceName.empty()) return findInterface(options.interfaceName);
  const std::string usual = settings.GetDefaultNwIf();
  return hasInterface(usual) ? findInterface(usual) : findRoutedInterface();
}

}  // namespace

int runTarqRenderer(const RendererOptions& options) {
  std::signal(SIGPIPE, SIG_IGN);
  TarqDmrPluginManager& host = openHost(options.host);
  const NetworkInterface interface = chooseInterface(options, *host.GetSpec());
  RunningRenderer(options, host).run(interface);
  return kExitOk;
}
