// KLOexplainerror and KLOexplainstatus: the plain text of every error code
// and optimisation status of klo_c.h.
#include <cstdio>

#include "common/status_text.h"
#include "klo_c.h"

namespace {

struct CodeText {
  int code;
  const char* text;
};

const CodeText kTexts[] = {
    {KLO_OK, "Success"},
    {KLO_ERROR_INTERNAL, "Internal error in the solver library"},
    {KLO_ERROR_OUT_OF_MEMORY, "Out of memory, or the model could not be copied"},
    {KLO_ERROR_INVALID_ARGUMENT, "Invalid argument"},
    {KLO_ERROR_NULL_ARGUMENT, "Null pointer given for a required argument"},
    {KLO_ERROR_NOT_SUPPORTED, "The model uses a feature that no engine of this library supports"},
    {KLO_ERROR_DATA_NOT_AVAILABLE, "No solution information is available"},
    {KLO_ERROR_ENV_NOT_STARTED, "The environment has not been started"},
    {KLO_ERROR_BUSY, "The model is being solved"},
    {KLO_ERROR_NONCONVEX, "The model is not convex"},
    {KLO_ERROR_UNKNOWN_ATTRIBUTE, "Unknown attribute name"},
    {KLO_ERROR_ATTRIBUTE_TYPE, "The attribute is of another type"},
    {KLO_ERROR_ATTRIBUTE_LEVEL, "The attribute belongs to the other level"},
    {KLO_ERROR_ATTRIBUTE_READONLY, "The attribute cannot be set"},
    {KLO_ERROR_UNKNOWN_PARAMETER, "Unknown parameter name"},
    {KLO_ERROR_PARAMETER_TYPE, "The parameter is of another type"},
    {KLO_ERROR_PARAMETER_RANGE, "Parameter value out of range"},
    {KLO_ERROR_INDEX_OUT_OF_RANGE, "Index out of range"},
    {KLO_ERROR_INVALID_CONSTR, "Invalid constraint index"},
    {KLO_ERROR_INVALID_VAR, "Invalid variable index"},
    {KLO_ERROR_INVALID_PSDVAR, "Invalid PSD variable index"},
    {KLO_ERROR_INVALID_SOS, "Invalid SOS index"},
    {KLO_ERROR_INVALID_GENCONSTR, "Invalid general constraint index"},
    {KLO_ERROR_INVALID_OBJECTIVE, "Invalid objective index"},
    {KLO_ERROR_FILE_OPEN, "Cannot open the file"},
    {KLO_ERROR_FILE_READ, "Malformed file"},
    {KLO_ERROR_FILE_WRITE, "Cannot write the file"},
    {KLO_ERROR_FILE_FORMAT, "Unknown file format"},
    {KLO_ERROR_CALLBACK_INFO, "Unknown callback information code"},
    {KLO_ERROR_NOT_IN_CALLBACK, "Called outside a running callback"},
    {KLO_ERROR_CALLBACK_WHERE, "Not available at this callback location"},
    {KLO_ERROR_CALLBACK_EXCEPTION, "The callback threw an exception"},
    {KLO_CB_REJECTED, "The proposed solution is infeasible and was not used"},
    {KLO_CB_NOT_IMPROVING, "The proposed solution is not better than the incumbent"},
    {KLO_CB_IGNORED, "The request cannot be used at this point of the search"},
};

}  // namespace

extern "C" const char* KLOexplainerror(int code) {
  for (const CodeText& t : kTexts)
    if (t.code == code) return t.text;
  // The text must outlive the call: one slot per thread, as the header
  // promises a static text.
  thread_local char generic[48];
  std::snprintf(generic, sizeof generic, "Unknown error code %d", code);
  return generic;
}

extern "C" const char* KLOexplainstatus(int status) { return klo::statusText(status); }
