// klo_cl: reads a model file, sets parameters given as Name=value or in
// parameter files, solves, prints the log and a summary, and writes the
// files named by ResultFile=.
//
// Exit status: 0 when the model was solved (whatever its status), 1 when the
// library refused something (unreadable file, value out of range, ...), 2
// for a command line that cannot be used.
#include <malloc.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "library.h"
#include "options.h"
#include "parameters.h"
#include "summary.h"

namespace {

const char* const kUsage =
    "usage: klo_cl [Name=value | file.prm ...] model-file\n"
    "\n"
    "Reads an MPS (.mps, .qps), LP (.lp) or SDPA (.dat-s) model file (plain or .gz),\n"
    "solves it and prints a summary.\n"
    "Name=value sets a parameter (names in any letter case).\n"
    "file.prm, or ParamFile=file, reads parameters from a file (\"Name value\" a line,\n"
    "'#' starts a comment). Settings and files apply in the order given.\n"
    "ResultFile=file writes a result after the solve, by its extension: .sol\n"
    "(solution), .mps, .qps, .lp or .dat-s (model), .mst (start), .prm (parameters), .bas\n"
    "(basis);\n"
    "it may be given several times.\n";

int fail(const std::string& what, const klo_cl::LibraryError& e) {
  std::cerr << "klo_cl: " << what << ": " << e.what() << "\n";
  return 1;
}

// The simplex engine frees and reallocates its factorisation, a little
// larger each time; with glibc's default thresholds each of these goes back
// to the system and returns as fresh pages to fault in. A short-lived solver
// process does better keeping freed memory for reuse.
void keepFreedMemory() {
  mallopt(M_MMAP_THRESHOLD, 16 << 20);
  mallopt(M_TRIM_THRESHOLD, 64 << 20);
}

// Applies one Name=value setting or parameter file: 0, or fail()'s status.
int applySetting(KLOenv* env, const std::string& name, const std::string& value) {
  try {
    if (name == klo_cl::kParamFile)
      klo_cl::check(env, KLOreadparams(env, value.c_str()));
    else
      klo_cl::setParameter(env, name, value);
  } catch (const klo_cl::LibraryError& e) {
    return fail(
        name == klo_cl::kParamFile ? "cannot read " + value : "cannot set " + name + "=" + value,
        e);
  }
  return 0;
}

int solve(KLOenv* env, const klo_cl::Options& options) {
  std::unique_ptr<klo_cl::Model> model;
  try {
    model = std::make_unique<klo_cl::Model>(env, options.modelFile);
  } catch (const klo_cl::LibraryError& e) {
    return fail("cannot read " + options.modelFile, e);
  }
  try {
    klo_cl::printModelSize(model->model, options.modelFile, std::cout);
    klo_cl::check(model->env(), KLOoptimize(model->model));
    klo_cl::printSummary(model->model, std::cout);
    for (const std::string& file : options.resultFiles) {
      klo_cl::check(model->env(), KLOwrite(model->model, file.c_str()));
      std::cout << "Wrote " << file << "\n";
    }
  } catch (const klo_cl::LibraryError& e) {
    return fail("solve failed", e);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  keepFreedMemory();
  klo_cl::Options options;
  try {
    options = klo_cl::parseCommandLine(std::vector<std::string>(argv + 1, argv + argc));
  } catch (const klo_cl::UsageError& e) {
    std::cerr << "klo_cl: " << e.what() << "\n" << kUsage;
    return 2;
  }
  try {
    klo_cl::Environment environment;  // parameters first, so that LogFile applies from the start
    KLOenv* env = environment.env;
    for (const auto& [name, value] : options.parameters)
      if (int rc = applySetting(env, name, value)) return rc;
    klo_cl::check(env, KLOstartenv(env));
    if (!options.help) return solve(env, options);
    std::cout << kUsage << "\nParameters:\n";
    klo_cl::listParameters(env, std::cout);
    return 0;
  } catch (const klo_cl::UsageError& e) {
    std::cerr << "klo_cl: " << e.what() << "\n";
    return 2;
  } catch (const klo_cl::LibraryError& e) {
    return fail("cannot start the environment", e);
  }
}
