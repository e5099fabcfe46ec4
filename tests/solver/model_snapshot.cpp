// Read through the C interface, except the PSD terms of rows, which have no
// getter there and come from the store.
#include "model_snapshot.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <vector>

#include "store/model.h"

namespace klotest {
namespace {

int intAttr(KLOmodel* m, const char* name) {
  int v = -1;
  KLOgetintattr(m, name, &v);
  return v;
}

void variables(KLOmodel* m, std::ostream& out, bool names) {
  for (int j = 0; j < intAttr(m, "NumVars"); ++j) {
    double lb = 0, ub = 0, obj = 0;
    char t = '?';
    const char* name = "";
    KLOgetdblattrelement(m, "LB", j, &lb);
    KLOgetdblattrelement(m, "UB", j, &ub);
    KLOgetdblattrelement(m, "Obj", j, &obj);
    KLOgetcharattrelement(m, "VType", j, &t);
    if (names) KLOgetstrattrelement(m, "VarName", j, &name);
    out << "var " << j << " '" << name << "' " << t << " [" << lb << ", " << ub << "] obj " << obj
        << "\n";
  }
}

void psdTerms(const klo::Row& r, std::ostream& out) {
  std::vector<klo::PsdTerm> terms = r.nl->psd;  // in the order of their PSD variables
  std::sort(terms.begin(), terms.end(),
            [](const klo::PsdTerm& a, const klo::PsdTerm& b) { return a.psdVar < b.psdVar; });
  for (const klo::PsdTerm& t : terms) {
    out << " psd" << t.psdVar << ":";
    for (int k = 0; k < t.mat.size(); ++k) out << " " << t.mat.pos[k] << "=" << t.mat.val[k];
  }
}

void rows(KLOmodel* m, std::ostream& out, bool names) {
  for (int i = 0; i < intAttr(m, "NumConstrs"); ++i) {
    double lo = 0, up = 0;
    KLOgetdblattrelement(m, "LHS", i, &lo);
    KLOgetdblattrelement(m, "RHS", i, &up);
    int nl = 0, nq = 0;
    KLOgetqconstr(m, i, &nl, nullptr, nullptr, &nq, nullptr, nullptr, nullptr);
    std::vector<int> li(nl), qr(nq), qc(nq);
    std::vector<double> lv(nl), qv(nq);
    KLOgetqconstr(m, i, &nl, li.data(), lv.data(), &nq, qr.data(), qc.data(), qv.data());
    const char* name = "";
    if (names) KLOgetstrattrelement(m, "ConstrName", i, &name);
    out << "row " << i << " '" << name << "' [" << lo << ", " << up << "]";
    for (int k = 0; k < nl; ++k) out << " " << lv[k] << "*x" << li[k];
    for (int k = 0; k < nq; ++k) out << " " << qv[k] << "*x" << qr[k] << "*x" << qc[k];
    if (m->data.rows[i].hasPsd()) psdTerms(m->data.rows[i], out);
    out << "\n";
  }
}

void objective(KLOmodel* m, std::ostream& out) {
  double con = 0;
  KLOgetdblattr(m, "ObjCon", &con);
  out << "sense " << intAttr(m, "ModelSense") << " constant " << con << "\n";
  int nq = 0;
  KLOgetq(m, &nq, nullptr, nullptr, nullptr);
  std::vector<int> r(nq), c(nq);
  std::vector<double> v(nq);
  KLOgetq(m, &nq, r.data(), c.data(), v.data());
  for (int k = 0; k < nq; ++k) out << "q " << v[k] << "*x" << r[k] << "*x" << c[k] << "\n";
}

void sets(KLOmodel* m, std::ostream& out) {
  const int ns = intAttr(m, "NumSOS");
  int nm = 0;
  if (ns > 0) KLOgetsos(m, &nm, nullptr, nullptr, nullptr, nullptr, 0, ns);
  std::vector<int> types(ns), beg(ns), ind(nm);
  std::vector<double> w(nm);
  if (ns > 0) KLOgetsos(m, &nm, types.data(), beg.data(), ind.data(), w.data(), 0, ns);
  for (int s = 0; s < ns; ++s) {
    out << "sos" << types[s];
    for (int k = beg[s]; k < (s + 1 < ns ? beg[s + 1] : nm); ++k)
      out << " x" << ind[k] << ":" << w[k];
    out << "\n";
  }
}

void indicators(KLOmodel* m, std::ostream& out) {
  for (int g = 0; g < intAttr(m, "NumGenConstrs"); ++g) {
    int bv = 0, bval = 0, n = 0;
    char sense = 0;
    double rhs = 0;
    KLOgetgenconstrIndicator(m, g, &bv, &bval, &n, nullptr, nullptr, &sense, &rhs);
    std::vector<int> ind(n);
    std::vector<double> val(n);
    KLOgetgenconstrIndicator(m, g, &bv, &bval, &n, ind.data(), val.data(), &sense, &rhs);
    out << "ind x" << bv << "=" << bval << " ->";
    for (int k = 0; k < n; ++k) out << " " << val[k] << "*x" << ind[k];
    out << " " << sense << " " << rhs << "\n";
  }
}

void psdVars(KLOmodel* m, std::ostream& out) {
  for (int k = 0; k < intAttr(m, "NumPsdVars"); ++k) {
    int dim = 0, nnz = 0, nr = 0, nc = 0;
    KLOgetintattrelement(m, "Dim", k, &dim);
    KLOgetmatattrelement(m, "PsdObj", k, &nnz, &nr, &nc, nullptr, nullptr);
    std::vector<int> ind(nnz);
    std::vector<double> val(nnz);
    KLOgetmatattrelement(m, "PsdObj", k, &nnz, &nr, &nc, ind.data(), val.data());
    out << "psd " << k << " dim " << dim << " obj";
    for (int e = 0; e < nnz; ++e) out << " " << ind[e] << ":" << val[e];
    out << "\n";
  }
  out << "psdrows " << intAttr(m, "NumPsdConstrs") << " ents " << intAttr(m, "NumEnts") << "\n";
}

}  // namespace

std::string snapshot(KLOmodel* m, SnapshotOptions o) {
  std::ostringstream out;
  out.precision(17);
  if (o.modelName) {
    const char* name = "";
    KLOgetstrattr(m, "ModelName", &name);
    out << "model '" << name << "'\n";
  }
  variables(m, out, o.names);
  rows(m, out, o.names);
  objective(m, out);
  sets(m, out);
  indicators(m, out);
  psdVars(m, out);
  out << "objectives " << intAttr(m, "NumObj") << "\n";
  return out.str();
}

bool sameNumbers(const std::string& a, const std::string& b, double relTol) {
  const char* p = a.c_str();
  const char* q = b.c_str();
  while (*p && *q) {
    char* pe = nullptr;
    char* qe = nullptr;
    double x = std::strtod(p, &pe), y = std::strtod(q, &qe);
    if (pe != p && qe != q && std::isdigit(static_cast<unsigned char>(pe[-1])) &&
        std::isdigit(static_cast<unsigned char>(qe[-1]))) {
      if (std::fabs(x - y) > relTol * std::max(std::fabs(x), std::fabs(y))) return false;
      p = pe, q = qe;
    } else if (*p++ != *q++) {
      return false;
    }
  }
  return *p == *q;
}

}  // namespace klotest
