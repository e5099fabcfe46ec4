#include "solve/optimize.h"

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/error.h"
#include "klo_c.h"
#include "solve/checked_solve.h"
#include "solve/chooser.h"
#include "solve/message_relay.h"
#include "solve/objectives.h"
#include "solve/polling.h"
#include "solve/problem_from_model.h"
#include "solve/reformulation.h"
#include "solve/settings_from_params.h"
#include "solve/store_result.h"
#include "solve/trim_result.h"
#include "solve/user_callback.h"

namespace klo {

BusyModel::BusyModel(KLOmodel& m, const char* what) : m_(m) {
  if (m.busy)
    fail(KLO_ERROR_BUSY,
         std::string(what) + ": the model is being solved (called from its own callback)");
  m.busy = true;
}

namespace {

engine::CallbackContext pollingContext(const ModelData& d,
                                       std::chrono::steady_clock::time_point started) {
  engine::CallbackContext ctx;
  ctx.numVars = d.numVars();
  ctx.numRows = d.numRows();
  ctx.numIntVars = d.countTypes("BIN");
  ctx.started = started;
  return ctx;
}

}  // namespace

void optimize(KLOmodel& m) {
  BusyModel busy(m, "KLOoptimize");
  const auto started = std::chrono::steady_clock::now();
  engine::Problem p = problemFromModel(m.data);
  engine::Settings s = settingsFromParams(m.env);
  s.started = started;  // building the problem counts against "MaxTime" too
  auto calls = std::make_shared<UserCallState>();
  const engine::Callback userCall = userCallback(m, calls);
  engine::Callback cb = userCall;
  relayMessages(m.data, m.env.params.getInt("OutputFlag") != 0, s, cb);
  const Reformulation f = reformulate(p, m.env.params.getDbl("MIP/LinearizationBigM"));
  cb = modelCallback(std::move(cb), f, m.data);
  logUnusedParameters(chooseEngine(p, "KLOoptimize", s.nonconvexLocal), s);
  engine::Result r;
  {
    Poller poller(userCall, pollingContext(m.data, started));
    r = m.data.objectives.size() > 1 ? solveObjectives(p, m.data, s, cb)
                                     : checkedSolve(p, s, cb, "KLOoptimize");
  }
  checkReformulated(f, r, s);
  trimResult(r, m.data.numVars(), m.data.numRows());
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - started;
  storeResult(m, std::move(r), seconds.count());
  if (calls->thrown) throw CallbackThrew{calls->thrown};
}

}  // namespace klo
