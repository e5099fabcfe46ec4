// Log lines of a solve as KLO_CB_MESSAGE callbacks.
#pragma once

#include "engine/callback_context.h"
#include "engine/settings.h"
#include "store/model_data.h"

namespace klo {

// With a user callback, every line the engines write to the log also reaches
// the callback at KLO_CB_MESSAGE, even when the log is printed nowhere;
// outputOn false ("OutputFlag" 0) still silences everything. A stop asked
// there takes effect at the engine's next callback location, where callback
// returns KLO_CB_STOP without calling the user again. Changes s and
// callback in place; nothing changes without a callback.
void relayMessages(const ModelData& d, bool outputOn, engine::Settings& s,
                   engine::Callback& callback);

}  // namespace klo
