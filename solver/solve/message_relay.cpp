#include "solve/message_relay.h"

#include <memory>
#include <string>
#include <utility>

#include "klo_c.h"

namespace klo {
namespace {

// Shared by the log sink and the callback that the engine holds.
struct Relay {
  engine::Callback user;
  engine::LogSink print;
  engine::CallbackContext ctx;
  bool stopAsked = false;

  void line(const std::string& text) {
    if (print) print(text);
    if (stopAsked) return;
    ctx.where = KLO_CB_MESSAGE;
    ctx.message = text.c_str();
    stopAsked = user(ctx) == KLO_CB_STOP;
    ctx.message = nullptr;
  }
};

}  // namespace

void relayMessages(const ModelData& d, bool outputOn, engine::Settings& s,
                   engine::Callback& callback) {
  if (!callback || !outputOn) return;
  auto relay = std::make_shared<Relay>();
  relay->user = std::move(callback);
  relay->ctx.numVars = d.numVars();
  relay->ctx.numRows = d.numRows();
  relay->ctx.numIntVars = d.countTypes("BIN");
  // Printing costs the engine nothing when nobody reads; the callback does.
  if (s.logLevel == 0) s.log = nullptr;
  relay->print = std::move(s.log);
  s.logLevel = 1;
  s.log = [relay](const std::string& text) { relay->line(text); };
  callback = [relay](engine::CallbackContext& ctx) {
    return relay->stopAsked ? KLO_CB_STOP : relay->user(ctx);
  };
}

}  // namespace klo
