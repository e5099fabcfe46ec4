#include "model/terms.h"

#include "env/check.h"
#include "klo_c.h"
#include "model/upper_triangle.h"

namespace klo_detail {

Bounds senseToBounds(char sense, double rhs) {
  if (sense == '>') return {rhs, KLO_INFINITY};
  if (sense == '=') return {rhs, rhs};
  return {-KLO_INFINITY, rhs};
}

double shifted(double bound, double constant) {
  return bound > -KLO_INFINITY && bound < KLO_INFINITY ? bound - constant : bound;
}

template <class H>
int liveIndex(const H& h, int code) {
  const int k = h.index();
  if (k < 0) raise(code);
  return k;
}

template int liveIndex(const KLOVar&, int);
template int liveIndex(const KLOPsdVar&, int);
template int liveIndex(const KLOSOS&, int);
template int liveIndex(const KLOGenConstr&, int);

LinearTerms::LinearTerms(const KLOLinExpr& e) {
  std::vector<double> coeffs;
  std::vector<KLOVar> vars;
  coeffs.reserve(static_cast<std::size_t>(e.size()));
  vars.reserve(static_cast<std::size_t>(e.size()));
  for (int i = 0; i < e.size(); ++i) {
    coeffs.push_back(e.getCoeff(i));
    vars.push_back(e.getVar(i));
  }
  combineLikeTerms(coeffs, vars);
  for (const KLOVar& v : vars) ind.push_back(liveIndex(v, KLO_ERROR_INVALID_VAR));
  val = std::move(coeffs);
}

QuadTerms::QuadTerms(const KLOQuadExpr& q) {
  std::vector<double> coeffs;
  std::vector<KLOVar> vars1, vars2;
  for (int i = 0; i < q.size(); ++i) {
    coeffs.push_back(q.getCoeff(i));
    vars1.push_back(q.getVar1(i));
    vars2.push_back(q.getVar2(i));
  }
  combineLikeQTerms(coeffs, vars1, vars2);
  for (std::size_t k = 0; k < coeffs.size(); ++k) {
    row.push_back(liveIndex(vars1[k], KLO_ERROR_INVALID_VAR));
    col.push_back(liveIndex(vars2[k], KLO_ERROR_INVALID_VAR));
  }
  val = std::move(coeffs);
}

namespace {

// Whether term i of P shares its PSD variable with another term.
bool sharesItsVariable(const KLOPsdExpr& P, int i) {
  for (int k = 0; k < P.size(); ++k)
    if (k != i && P.getPsdVar(k).sameAs(P.getPsdVar(i))) return true;
  return false;
}

}  // namespace

void mergePsdTerms(const KLOPsdExpr& P, std::vector<KLOMatrix>& matrices,
                   std::vector<KLOPsdVar>& vars) {
  for (int i = 0; i < P.size(); ++i) {
    KLOMatrix M = P.getCoeff(i);
    // A matrix summed with others is first read as the library reads it.
    if (sharesItsVariable(P, i) && !foldToUpper(M)) {
      // The library refuses this matrix in any sum, with its own message;
      // alone, no other term can mask what is wrong with it.
      matrices.assign(1, M);
      vars.assign(1, P.getPsdVar(i));
      return;
    }
    matrices.push_back(M);
    vars.push_back(P.getPsdVar(i));
  }
  combineLikeTerms(matrices, vars);
}

PsdTerms::PsdTerms(const KLOPsdExpr& P) {
  std::vector<KLOMatrix> matrices;
  std::vector<KLOPsdVar> vars;
  mergePsdTerms(P, matrices, vars);
  for (std::size_t k = 0; k < vars.size(); ++k) {
    var.push_back(liveIndex(vars[k], KLO_ERROR_INVALID_VAR));
    beg.push_back(static_cast<int>(ind.size()));
    const KLOMatrix& M = matrices[k];
    ind.insert(ind.end(), M.indices(), M.indices() + M.nonzeros());
    val.insert(val.end(), M.data(), M.data() + M.nonzeros());
  }
  beg.push_back(static_cast<int>(ind.size()));
}

std::vector<const char*> cNames(const std::string* names, int count) {
  std::vector<const char*> out;
  if (!names) return out;
  for (int j = 0; j < count; ++j) out.push_back(names[j].c_str());
  return out;
}

KLOVar libraryVar(const std::vector<KLOVar>& vars, int index) {
  if (index < 0 || index >= static_cast<int>(vars.size())) raise(KLO_ERROR_INVALID_VAR);
  return vars[static_cast<std::size_t>(index)];
}

}  // namespace klo_detail
