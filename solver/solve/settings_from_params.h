// Engine settings from the parameters of a model's environment, with the
// engine log written through the environment's log.
#pragma once

#include "engine/settings.h"
#include "env/environment.h"

namespace klo {

// Every parameter that engine/settings.h maps.  The log sink refers to env,
// which must outlive the solve.
engine::Settings settingsFromParams(KLOenv& env);

}  // namespace klo
