// Expressions written in algebraic form with variable names.  The text is
// built in a private stream so the caller's formatting is neither used nor
// changed.
#include <cmath>
#include <ostream>
#include <sstream>

#include "klo_cpp.h"

void outputTerm(std::stringstream& ss, double coeff, std::string name1, std::string name2) {
  if (coeff == 0.0) return;
  ss << (coeff >= 0 ? " + " : " - ");
  const double a = std::fabs(coeff);
  if (a != 1.0 || name1.empty()) ss << a;
  if (!name1.empty()) {
    if (a != 1.0) ss << " * ";
    ss << name1;
  }
  if (!name2.empty()) ss << " * " << name2;
}

namespace {

// Drops the leading " + " (or the blank before a leading "-").
void writeTrimmed(std::ostream& os, const std::string& s) {
  if (s.size() <= 3) {
    os << s;
  } else {
    os << s.substr(s[1] == '+' ? 3 : 1);
  }
}

std::string nameOf(const KLOVar& v) { return v.get(KLO_StringAttr_VarName); }

}  // namespace

std::ostream& operator<<(std::ostream& os, KLOLinExpr e) {
  std::stringstream ss;
  for (int i = 0; i < e.size(); ++i) outputTerm(ss, e.getCoeff(i), nameOf(e.getVar(i)), "");
  if (e.getConstant() != 0.0) outputTerm(ss, e.getConstant(), "", "");
  writeTrimmed(os, ss.str());
  return os;
}

std::ostream& operator<<(std::ostream& os, KLOQuadExpr q) {
  std::stringstream ss;
  for (int i = 0; i < q.size(); ++i) {
    std::string name1 = nameOf(q.getVar1(i));
    std::string name2 = nameOf(q.getVar2(i));
    outputTerm(ss, q.getCoeff(i), std::move(name1), std::move(name2));
  }
  // The linear text follows already trimmed and without a separator: the
  // established output form.
  ss << q.getLinExpr();
  writeTrimmed(os, ss.str());
  return os;
}
