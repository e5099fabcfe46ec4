// Small models built through the C interface from arbitrary bytes, bounds
// and coefficients drawn from a palette with infinities, NaN, huge and tiny
// values: every call ends with a documented code, the solve ends, and an
// answer called optimal is checked here again, independently of the
// library's own check.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

#include "fuzz_file.h"

namespace {

class Bytes {
 public:
  Bytes(const uint8_t* data, size_t size) : p_(data), n_(size) {}
  bool empty() const { return n_ == 0; }
  unsigned take() { return n_ ? (--n_, *p_++) : 0u; }
  double value() {
    static const double palette[] = {0,
                                     1,
                                     -1,
                                     2.5,
                                     -3,
                                     0.5,
                                     7,
                                     100,
                                     1e-12,
                                     1e6,
                                     -1e6,
                                     1e19,
                                     1e20,
                                     -1e20,
                                     1e25,
                                     1e30,
                                     -1e30,
                                     std::numeric_limits<double>::infinity(),
                                     -std::numeric_limits<double>::infinity(),
                                     std::numeric_limits<double>::quiet_NaN(),
                                     std::numeric_limits<double>::max(),
                                     std::numeric_limits<double>::denorm_min()};
    return palette[take() % (sizeof palette / sizeof palette[0])];
  }

 private:
  const uint8_t* p_;
  size_t n_;
};

int intAttr(KLOmodel* m, const char* name) {
  int v = 0;
  KLOgetintattr(m, name, &v);
  return v;
}

double elem(KLOmodel* m, const char* name, int i) {
  double v = 0;
  if (KLOgetdblattrelement(m, name, i, &v) != 0) std::abort();
  return v;
}

bool outside(double v, double lo, double up, double scale) {
  const double tol =
      1e-5 * std::max({1.0, std::fabs(lo < -1e19 ? 0 : lo), std::fabs(up > 1e19 ? 0 : up), scale});
  return (lo > -1e20 && v < lo - tol) || (up < 1e20 && v > up + tol);
}

// The answer against bounds, types and rows, read back through the C
// interface.
void checkOptimal(KLOmodel* m) {
  const int n = intAttr(m, "NumVars"), rows = intAttr(m, "NumConstrs");
  std::vector<double> x(n);
  for (int j = 0; j < n; ++j) {
    x[j] = elem(m, "X", j);
    char type = 'C';
    KLOgetcharattrelement(m, "VType", j, &type);
    const double lo = elem(m, "LB", j), up = elem(m, "UB", j);
    const bool semi = type == 'S' || type == 'N';
    const bool off = semi && std::fabs(x[j]) <= 1e-6;  // a semi-continuous column at 0
    if (!off && outside(x[j], lo, up, 0)) std::abort();
    if ((type == 'B' || type == 'I' || (type == 'N' && !off)) &&
        std::fabs(x[j] - std::round(x[j])) > 1e-5)
      std::abort();
  }
  for (int i = 0; i < rows; ++i) {
    int nz = 0, beg = 0;
    if (KLOgetconstrs(m, &nz, nullptr, nullptr, nullptr, i, 1) != 0) std::abort();
    std::vector<int> ind(nz + 1);
    std::vector<double> val(nz + 1);
    KLOgetconstrs(m, &nz, &beg, ind.data(), val.data(), i, 1);
    double act = 0, largest = 0;
    for (int k = 0; k < nz; ++k) {
      act += val[k] * x[ind[k]];
      largest = std::max(largest, std::fabs(val[k] * x[ind[k]]));
    }
    if (outside(act, elem(m, "LHS", i), elem(m, "RHS", i), largest)) std::abort();
  }
}

int addVar(KLOmodel* m, Bytes& b) {
  static const char types[] = "CBISN";
  const double obj = b.value(), lb = b.value(), ub = b.value();
  return KLOaddvar(m, 0, nullptr, nullptr, obj, lb, ub, types[b.take() % 5], nullptr);
}

int addRow(KLOmodel* m, Bytes& b) {
  const int n = intAttr(m, "NumVars");
  const int terms = static_cast<int>(b.take() % 4) + 1;
  std::vector<int> ind;
  std::vector<double> val;
  for (int k = 0; k < terms; ++k) {
    ind.push_back(static_cast<int>(b.take()) % (n + 1));  // n itself is no variable
    val.push_back(b.value());
  }
  const double lower = b.value(), upper = b.value();
  return KLOaddrangeconstr(m, terms, ind.data(), val.data(), lower, upper, nullptr);
}

int addSos(KLOmodel* m, Bytes& b) {
  const int n = std::max(1, intAttr(m, "NumVars"));
  const int type = static_cast<int>(b.take() % 3), beg = 0;
  const int ind[] = {static_cast<int>(b.take()) % n, static_cast<int>(b.take()) % n};
  const double weight[] = {b.value(), b.value()};
  return KLOaddsos(m, 1, 2, &type, &beg, ind, weight);
}

// One change to the model; its status.
int step(KLOmodel* m, Bytes& b) {
  const int n = std::max(1, intAttr(m, "NumVars"));
  switch (b.take() % 8) {
    case 0:
    case 1: return addVar(m, b);
    case 2:
    case 3: return addRow(m, b);
    case 4: return addSos(m, b);
    case 5: {
      const char* bound = b.take() % 2 ? "LB" : "UB";
      const int j = static_cast<int>(b.take()) % n;
      return KLOsetdblattrelement(m, bound, j, b.value());
    }
    case 6: {
      const int j = static_cast<int>(b.take()) % n;
      return KLOsetdblattrelement(m, "Obj", j, b.value());
    }
    default: return KLOsetintattr(m, "ModelSense", b.take() % 2 ? 1 : -1);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  KLOenv* env = klo_fuzz::quietEnv();
  KLOmodel* m = nullptr;
  if (KLOnewmodel(env, &m, "fuzz", 0, nullptr, nullptr, nullptr, nullptr, nullptr) != 0)
    std::abort();
  KLOsetdblparam(KLOgetenv(m), "MaxTime", 0.5);
  KLOsetintparam(KLOgetenv(m), "MIP/MaxNodes", 100);
  Bytes b(data, size);
  for (int k = 0; k < 40 && !b.empty(); ++k) klo_fuzz::expectClean(KLOgetenv(m), step(m, b));
  // For triage: the model of an input, as an LP file.
  if (const char* keep = std::getenv("KLO_FUZZ_WRITE_MODEL")) KLOwrite(m, keep);
  const int status = KLOoptimize(m);
  klo_fuzz::expectClean(KLOgetenv(m), status);
  if (status == 0 && intAttr(m, "Status") == KLO_STATUS_OPTIMAL) checkOptimal(m);
  KLOfreemodel(m);
  return 0;
}
