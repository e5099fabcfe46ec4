// CSDP adapter: problems with PSD variables (and linear parts), by CSDP's
// primal-dual interior-point method, on the block form of sdp_packing.h.
//
// Quirks of CSDP 6.2 as shipped in Debian 12, and what this file does:
//  - easy_sdp gets its parameters from initparams(), which reads
//    "param.csdp" from the working directory when there is one (a stray
//    file there changes every result) and sets printlevel 1 (progress on
//    stdout).  The library calls initparams and user_exit through its PLT,
//    so the definitions below, exported from this module, replace its own:
//    the parameters come from the solve's settings and printlevel is 0
//    (checked: nothing on stdout, a param.csdp asking for output ignored).
//  - user_exit() is called once per iteration with the primal and dual
//    objectives: the progress lines, KLO_CB_BARRIER, "MaxTime" and a
//    callback's stop go through it (returning 1 stops: code 10).
//  - Neither hook has a user pointer: one CSDP solve at a time, the run in
//    progress found through a pointer guarded by a mutex.
//  - Everything is 1-based; matrix blocks are dense column-major (ijtok),
//    constraint blocks list the upper triangle; an off-diagonal entry
//    stands for itself and its mirror, as in our SymMatrix.
//  - Return codes: 0 solved; 1 primal infeasible and 2 dual infeasible
//    (certificates to its own tolerance); 3 partial success (a solution
//    short of full accuracy); 4 iteration limit; 5-9 numerical failures
//    (stuck at the edge of feasibility, lack of progress, singular
//    systems, NaN); 10 stopped by user_exit.
//  - Its gap test uses tr(XZ) ("usexzgap"), which can be tiny while the
//    objectives are far apart: on max 2 X01 s.t. X00 = 1 (unbounded, with
//    no improving ray) it returned success with objectives 4.0e9 and
//    2.0e9.  Success is taken only when the objectives agree.
//  - It exits the process ("Storage allocation failed!") when malloc fails: the
//    memory a problem needs is estimated first, and a problem beyond the
//    machine is refused.
//  - It also exits on input its checks reject (no constraints, an empty
//    constraint, a repeated entry, an off-diagonal entry in a diagonal
//    block): the packing never makes the last three, and a problem with
//    no constraints is decided here without it.
//  - It needs linearly independent constraints: a repeated row makes its
//    Schur complement singular (code 8, reported numerical).
#include <csdp/declarations.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <exception>
#include <mutex>

#include "common/eigenvalues.h"
#include "common/error.h"
#include "common/status_text.h"
#include "engine/engine.h"
#include "engine/log.h"
#include "engine/problem_eval.h"
#include "engine/sdp/sdp_packing.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

using Clock = std::chrono::steady_clock;

class CsdpRun;
std::mutex csdpMutex;
CsdpRun* current = nullptr;  // the run inside easy_sdp, under csdpMutex

// The form's data in CSDP's layout; the arrays stay ours (CSDP only links
// its own lists through the sparse blocks' nextbyblock).
class CsdpData {
 public:
  explicit CsdpData(const SdpForm& f) : f_(f) {
    buildObjective();
    buildConstraints();
  }
  int n() const { return n_; }
  int k() const { return static_cast<int>(f_.blockSizes.size()); }
  blockmatrix& C() { return C_; }
  double* a() { return a_.data(); }
  constraintmatrix* constraints() { return constraints_.data(); }

 private:
  void buildObjective() {
    C_.nblocks = k();
    recs_.resize(k() + 1);
    data_.resize(k() + 1);
    for (int b = 0; b < k(); ++b) {
      const int size = f_.blockSizes[b];
      const bool diag = b == f_.diagonalBlock;
      data_[b + 1].assign(diag ? size + 1 : static_cast<size_t>(size) * size, 0.0);
      recs_[b + 1].blockcategory = diag ? DIAG : MATRIX;
      recs_[b + 1].blocksize = size;
      recs_[b + 1].data.mat = data_[b + 1].data();
      n_ += size;
    }
    for (const SdpEntry& e : f_.objective) {
      std::vector<double>& d = data_[e.block + 1];
      const int size = f_.blockSizes[e.block];
      if (e.block == f_.diagonalBlock) {
        d[e.i + 1] = e.val;
      } else {
        d[ijtok(e.i + 1, e.j + 1, size)] = e.val;
        d[ijtok(e.j + 1, e.i + 1, size)] = e.val;
      }
    }
    C_.blocks = recs_.data();
  }

  void buildConstraints() {
    const int m = static_cast<int>(f_.constraints.size());
    a_.assign(m + 1, 0.0);
    constraints_.assign(m + 1, constraintmatrix{nullptr});
    for (int i = 0; i < m; ++i) {
      a_[i + 1] = f_.rhs[i];
      const std::vector<SdpEntry>& e = f_.constraints[i];
      // Sorted by block: one sparse block per run of equal blocks, linked
      // in increasing block order.
      sparseblock* last = nullptr;
      for (size_t s = 0; s < e.size();) {
        size_t t = s;
        while (t < e.size() && e[t].block == e[s].block) ++t;
        sparseblock* blk = sparseBlock(i + 1, e, s, t);
        (last ? last->next : constraints_[i + 1].blocks) = blk;
        last = blk;
        s = t;
      }
    }
  }

  sparseblock* sparseBlock(int constraint, const std::vector<SdpEntry>& e, size_t s, size_t t) {
    const int count = static_cast<int>(t - s);
    values_.emplace_back(count + 1, 0.0);
    rows_.emplace_back(count + 1, 0);
    cols_.emplace_back(count + 1, 0);
    for (int q = 1; q <= count; ++q) {
      const SdpEntry& x = e[s + q - 1];
      values_.back()[q] = x.val;
      rows_.back()[q] = x.i + 1;
      cols_.back()[q] = x.j + 1;
    }
    sparseblock blk{};
    blk.entries = values_.back().data();
    blk.iindices = rows_.back().data();
    blk.jindices = cols_.back().data();
    blk.numentries = count;
    blk.blocknum = e[s].block + 1;
    blk.blocksize = f_.blockSizes[e[s].block];
    blk.constraintnum = constraint;
    blk.issparse = 1;
    blocks_.push_back(blk);
    return &blocks_.back();
  }

  const SdpForm& f_;
  int n_ = 0;
  blockmatrix C_{};
  std::vector<blockrec> recs_;
  std::vector<std::vector<double>> data_;
  std::vector<double> a_;
  std::vector<constraintmatrix> constraints_;
  std::deque<sparseblock> blocks_;  // stable addresses
  std::deque<std::vector<double>> values_;
  std::deque<std::vector<int>> rows_, cols_;
};

}  // namespace
}  // namespace klo::engine

namespace klo::engine {
namespace {

class CsdpRun {
 public:
  static constexpr const char* kName = "CSDP";
  CsdpRun(const Problem& p, const Settings& s, const Callback& cb)
      : p_(p), s_(s), cb_(cb), form_(packSdp(p)) {
    ctx_.numVars = p.numCols();
    ctx_.numRows = p.numRows();
  }

  Result run() {
    if (form_.emptyInfeasibleRow >= 0) {
      r_.status = KLO_STATUS_INFEASIBLE;
      logLine(s_, "CSDP: row " + std::to_string(form_.emptyInfeasibleRow) +
                      " has no terms left and bounds that exclude 0");
      return std::move(r_);
    }
    checkMemory();
    if (form_.rhs.empty()) {
      solveUnconstrained();
    } else {
      std::lock_guard<std::mutex> lock(csdpMutex);
      solve();
    }
    r_.solverTime = std::chrono::duration<double>(Clock::now() - started_).count();
    logLine(s_, summaryLine());
    return std::move(r_);
  }

  // CSDP keeps about a dozen dense copies of the block matrix and the
  // dense m x m Schur complement (and exits the process when malloc
  // fails): a problem that cannot fit in this machine's memory is refused.
  void checkMemory() const {
    double entries = 0;
    for (int b = 0; b < static_cast<int>(form_.blockSizes.size()); ++b) {
      const double n = form_.blockSizes[b];
      entries += b == form_.diagonalBlock ? n : n * n;
    }
    const double m = static_cast<double>(form_.rhs.size());
    const double need = 8.0 * (12 * entries + 2 * m * m);
    const double have = static_cast<double>(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE);
    if (have > 0 && need > 0.8 * have)
      fail(KLO_ERROR_OUT_OF_MEMORY, "CSDP would need about " + formatNumber(need / 1e9) +
                                        " GB for this model, more than this machine's " +
                                        formatNumber(have / 1e9) + " GB");
  }

  // CSDP's parameters, from the settings (initparams below).
  void parameters(paramstruc& prm) const {
    prm.axtol = s_.ipmPrimalTolerance;
    prm.atytol = s_.ipmDualTolerance;
    prm.objtol = s_.ipmGapTolerance;
    prm.maxiter = std::max(1, s_.maxBarrierIterations);
  }

  // Each iteration (user_exit below): the progress line and the callback;
  // true stops the run.  Nothing may unwind through CSDP's C frames: an
  // exception stops the run and is thrown again once CSDP has returned.
  bool iteration(double pobj, double dobj) {
    try {
      return iterationUnguarded(pobj, dobj);
    } catch (...) {
      pending_ = std::current_exception();
      return true;
    }
  }

 private:
  bool iterationUnguarded(double pobj, double dobj) {
    ++r_.barrierIterations;
    const double primal = form_.modelObjective(pobj), dual = form_.modelObjective(dobj);
    progress(primal, dual);
    if (s_.timeLeft() <= 0) return timeUp_ = true;
    if (!cb_) return false;
    ctx_.where = KLO_CB_BARRIER;
    ctx_.iterCount = r_.barrierIterations;
    ctx_.barrierPrimal = primal;
    ctx_.barrierDual = dual;
    return cb_(ctx_) == KLO_CB_STOP;
  }

  void solve() {
    CsdpData data(form_);
    blockmatrix X{}, Z{};
    double* y = nullptr;
    double pobj = 0, dobj = 0;
    initsoln(data.n(), static_cast<int>(form_.rhs.size()), data.C(), data.a(), data.constraints(),
             &X, &y, &Z);
    current = this;
    const int code = easy_sdp(data.n(), static_cast<int>(form_.rhs.size()), data.C(), data.a(),
                              data.constraints(), 0.0, &X, &y, &Z, &pobj, &dobj);
    current = nullptr;
    r_.status = status(code);
    if (code == 0 && !gapClosed(pobj, dobj)) r_.status = KLO_STATUS_NUMERICAL;
    if (code == 0 || code == 3 || code == 4 || code == 10) readSolution(X, y, dobj);
    free_mat(X);
    free_mat(Z);
    free(y);
    if (pending_) std::rethrow_exception(pending_);
  }

  // Success means objectives that agree (see the quirks).
  bool gapClosed(double pobj, double dobj) const {
    const double gap = std::fabs(pobj - dobj) / (1.0 + std::fabs(pobj) + std::fabs(dobj));
    if (gap <= 100 * s_.ipmGapTolerance) return true;
    logLine(s_, "CSDP: reported success with primal objective " + formatNumber(pobj) +
                    " and dual objective " + formatNumber(dobj));
    return false;
  }

  int status(int code) const {
    switch (code) {
      case 0: return KLO_STATUS_OPTIMAL;
      case 1: return KLO_STATUS_INFEASIBLE;
      case 2: return KLO_STATUS_UNBOUNDED;
      case 3: return KLO_STATUS_SUBOPTIMAL;
      case 4: return KLO_STATUS_ITERATION_LIMIT;
      case 10: return timeUp_ ? KLO_STATUS_TIME_LIMIT : KLO_STATUS_INTERRUPTED;
      default: return KLO_STATUS_NUMERICAL;
    }
  }

  void readSolution(const blockmatrix& X, const double* y, double dobj) {
    std::vector<double> diagonal;
    if (form_.diagonalBlock >= 0) {
      const blockrec& b = X.blocks[form_.diagonalBlock + 1];
      diagonal.assign(b.data.vec + 1, b.data.vec + 1 + b.blocksize);
    }
    std::vector<std::vector<double>> psd;
    for (size_t k = 0; k < p_.psdVars.size(); ++k) psd.push_back(matrix(X.blocks[k + 1]));
    keepSolution(diagonal, std::move(psd), std::vector<double>(y + 1, y + 1 + form_.rhs.size()),
                 dobj);
  }

  // CSDP exits the process on a problem without constraints.  Without any,
  // the blocks are independent: Y = 0 is optimal when C is negative
  // semidefinite (the form maximises <C, Y>); otherwise <C, Y> grows without
  // bound along an eigenvector of a positive eigenvalue.
  void solveUnconstrained() {
    const int blocks = static_cast<int>(form_.blockSizes.size());
    std::vector<std::vector<double>> dense(blocks);
    double scale = 1.0;
    for (const SdpEntry& e : form_.objective) scale = std::max(scale, std::fabs(e.val));
    const double tol = 1e-9 * scale;
    r_.status = KLO_STATUS_OPTIMAL;
    for (const SdpEntry& e : form_.objective) {
      if (e.block == form_.diagonalBlock) {
        if (e.val > tol) r_.status = KLO_STATUS_UNBOUNDED;
        continue;
      }
      const size_t n = form_.blockSizes[e.block];
      dense[e.block].resize(n * n, 0.0);
      dense[e.block][e.i * n + e.j] = dense[e.block][e.j * n + e.i] = e.val;
    }
    for (int b = 0; b < blocks && r_.status == KLO_STATUS_OPTIMAL; ++b) {
      if (dense[b].empty()) continue;
      const std::vector<double> eig = symmetricEigenvalues(dense[b], form_.blockSizes[b]);
      if (eig.empty())
        r_.status = KLO_STATUS_NUMERICAL;
      else if (eig.back() > tol)
        r_.status = KLO_STATUS_UNBOUNDED;
    }
    logLine(s_, "SDP: no constraints; the objective decides alone (" +
                    std::string(statusText(r_.status)) + ")");
    if (r_.status != KLO_STATUS_OPTIMAL) return;
    std::vector<std::vector<double>> zero;
    for (const PsdVar& v : p_.psdVars) zero.emplace_back(static_cast<size_t>(v.dim) * v.dim, 0.0);
    const int scalars = form_.diagonalBlock >= 0 ? form_.blockSizes[form_.diagonalBlock] : 0;
    keepSolution(std::vector<double>(scalars, 0.0), std::move(zero), {}, 0.0);
  }

  void keepSolution(const std::vector<double>& diagonal, std::vector<std::vector<double>> psd,
                    const std::vector<double>& y, double dobj) {
    r_.hasSolution = true;
    r_.x = unpackColumns(form_, diagonal);
    r_.psdX = std::move(psd);
    r_.duals = unpackDuals(form_, y);
    const std::vector<double> aty = transposeTimes(p_, r_.duals);
    r_.reducedCosts.resize(p_.numCols());
    for (int j = 0; j < p_.numCols(); ++j) r_.reducedCosts[j] = p_.obj[j] - aty[j];
    r_.objective = objectiveOf(p_, r_.x.data(), &r_.psdX);
    r_.activities = rowActivities(p_, r_.x.data(), &r_.psdX);
    r_.dualObjective = form_.modelObjective(dobj);
  }

  // A matrix block, row-major (it is symmetric).
  static std::vector<double> matrix(const blockrec& b) {
    const int n = b.blocksize;
    std::vector<double> m(static_cast<size_t>(n) * n);
    for (int r = 0; r < n; ++r)
      for (int c = 0; c < n; ++c)
        m[static_cast<size_t>(r) * n + c] = b.data.mat[ijtok(r + 1, c + 1, n)];
    return m;
  }

  void progress(double primal, double dual) {
    if (r_.barrierIterations == 1)
      logLine(s_, " Iter     Primal objective       Dual objective     Time");
    char buf[120];
    std::snprintf(buf, sizeof buf, "%5lld %20.10g %20.10g %7.2fs", r_.barrierIterations, primal,
                  dual, std::chrono::duration<double>(Clock::now() - started_).count());
    logLine(s_, buf);
  }

  std::string summaryLine() const { return interiorSummary("SDP", r_, "interior-point"); }

  const Problem& p_;
  const Settings& s_;
  const Callback& cb_;
  SdpForm form_;
  CallbackContext ctx_;
  Result r_;
  bool timeUp_ = false;
  std::exception_ptr pending_;  // thrown inside an iteration
  Clock::time_point started_ = Clock::now();
};

}  // namespace
}  // namespace klo::engine

// CSDP's hooks, replacing the library's own (see the quirks above).
extern "C" __attribute__((visibility("default"))) void initparams(paramstruc* prm,
                                                                  int* printlevel) {
  *prm = paramstruc{1e-8, 1e-8, 1e-8, 1e8, 1e8, 100, 0.90, 0.97, 1e-8, 1e-8, 1, 0, 0, 1.0, 0};
  *printlevel = 0;
  if (klo::engine::current) klo::engine::current->parameters(*prm);
}

extern "C" __attribute__((visibility("default"))) int user_exit(int, int, blockmatrix, double*,
                                                                double dobj, double pobj, double,
                                                                constraintmatrix*, blockmatrix,
                                                                double*, blockmatrix, paramstruc) {
  return klo::engine::current && klo::engine::current->iteration(pobj, dobj) ? 1 : 0;
}

// The entry point through which the solver library loads this engine.
extern "C" __attribute__((visibility("default"))) klo::engine::Engine* klo_new_csdp_engine() {
  return new klo::engine::RunEngine<klo::engine::CsdpRun>();
}
