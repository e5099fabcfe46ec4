// klo_cl: reads a model file, sets parameters given as Name=value or in
// parameter files, solves, prints the log and a summary, and writes the
// files named by ResultFile= and the progress picture of PlotFile=.  The
// exit status, listed in kUsage, tells scripts how the run ended.
#include <malloc.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "chart.h"
#include "library.h"
#include "options.h"
#include "parameters.h"
#include "plot_file.h"
#include "progress.h"
#include "summary.h"

namespace {

enum ExitStatus { kSolved = 0, kRefused = 1, kUnusable = 2, kNoSolution = 3, kInfeasible = 4 };

const char* const kUsage =
    "usage: klo_cl [Name=value | file.prm ...] model-file\n"
    "       klo_cl --help [NAME]    every parameter, or one with its meaning\n"
    "       klo_cl --version\n"
    "\n"
    "Reads an MPS (.mps, .qps), LP (.lp) or SDPA (.dat-s) model file (plain or .gz),\n"
    "solves it and prints a summary.\n"
    "Name=value sets a parameter (names in any letter case).\n"
    "file.prm, or ParamFile=file, reads parameters from a file (\"Name value\" a line,\n"
    "'#' starts a comment). Settings and files apply in the order given.\n"
    "ResultFile=file writes a result after the solve, by its extension: .sol\n"
    "(solution), .mps, .qps, .lp or .dat-s (model), .mst (start), .prm (parameters), .bas\n"
    "(basis);\n"
    "it may be given several times.\n"
    "PlotFile=file draws the run's progress: a MIP's incumbent and bound against time,\n"
    "an LP's objective or a barrier's primal and dual objectives per iteration; .svg or\n"
    ".png for a picture, .csv for the table (a MIP then runs without preprocessing, as\n"
    "under any callback).\n"
    "\n"
    "Exit status: 0 solved (a solution was found; the summary's status says whether\n"
    "it is optimal), 1 the library refused something (unreadable file, value out of\n"
    "range, unwritable output), 2 unusable command line, 3 stopped without a solution\n"
    "(a limit, an interruption, numerical trouble), 4 infeasible or unbounded.\n";

int fail(const std::string& what, const std::exception& e) {
  std::cerr << "klo_cl: " << what << ": " << e.what() << "\n";
  return kRefused;
}

int intAttr(KLOmodel* model, const char* name) {
  int v = 0;
  klo_cl::check(KLOgetenv(model), KLOgetintattr(model, name, &v));
  return v;
}

int exitStatus(KLOmodel* model) {
  const int status = intAttr(model, "Status");
  if (status == KLO_STATUS_INFEASIBLE || status == KLO_STATUS_UNBOUNDED ||
      status == KLO_STATUS_INF_OR_UNBD)
    return kInfeasible;
  return intAttr(model, "HasSolution") ? kSolved : kNoSolution;
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
    std::unique_ptr<klo_cl::ProgressRecorder> progress;
    if (!options.plotFile.empty())
      progress = std::make_unique<klo_cl::ProgressRecorder>(model->model);
    klo_cl::printModelSize(model->model, options.modelFile, std::cout);
    klo_cl::check(model->env(), KLOoptimize(model->model));
    klo_cl::printSummary(model->model, std::cout);
    for (const std::string& file : options.resultFiles) {
      klo_cl::check(model->env(), KLOwrite(model->model, file.c_str()));
      std::cout << "Wrote " << file << "\n";
    }
    if (progress) {
      klo_cl::writePlot(progress->result(), options.plotFile);
      std::cout << "Wrote " << options.plotFile << "\n";
    }
    return exitStatus(model->model);
  } catch (const klo_cl::LibraryError& e) {
    return fail("solve failed", e);
  } catch (const klo_cl::ChartError& e) {
    return fail("plot failed", e);
  }
}

int help(KLOenv* env, const klo_cl::Options& options) {
  if (!options.helpParameter.empty()) {
    klo_cl::describeParameter(env, options.helpParameter, std::cout);
    return kSolved;
  }
  std::cout << kUsage << "\nParameters:\n";
  klo_cl::listParameters(env, std::cout);
  return kSolved;
}

}  // namespace

int main(int argc, char** argv) {
  keepFreedMemory();
  klo_cl::Options options;
  try {
    options = klo_cl::parseCommandLine(std::vector<std::string>(argv + 1, argv + argc));
    if (!options.plotFile.empty()) klo_cl::checkPlotFile(options.plotFile);
  } catch (const klo_cl::UsageError& e) {
    std::cerr << "klo_cl: " << e.what() << "\n" << kUsage;
    return kUnusable;
  }
  if (options.version) {
    std::cout << "klo_cl " << KLO_VERSION << "\n";
    return kSolved;
  }
  try {
    klo_cl::Environment environment;  // parameters first, so that LogFile applies from the start
    KLOenv* env = environment.env;
    for (const auto& [name, value] : options.parameters)
      if (int rc = applySetting(env, name, value)) return rc;
    klo_cl::check(env, KLOstartenv(env));
    return options.help ? help(env, options) : solve(env, options);
  } catch (const klo_cl::UsageError& e) {
    std::cerr << "klo_cl: " << e.what() << "\n";
    return kUnusable;
  } catch (const klo_cl::LibraryError& e) {
    return fail("cannot start the environment", e);
  }
}
