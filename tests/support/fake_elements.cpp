// Element functions of klo_c.h (variables, rows, quadratic terms, PSD
// variables, SOS, general constraints, objectives), recorded and scripted.
#include "engine.h"

using namespace klo_fake;

extern "C" {

int KLOaddvar(KLOmodel* model, int numnz, const int* vind, const double* vval, double obj,
              double lb, double ub, char vtype, const char* varname) {
  return status(__func__, {model, numnz, array(vind, numnz), array(vval, numnz), obj, lb, ub, vtype,
                           text(varname)});
}

int KLOaddvars(KLOmodel* model, int numvars, int numnz, const int* vbeg, const int* vind,
               const double* vval, const double* obj, const double* lb, const double* ub,
               const char* vtype, const char* const* varnames) {
  return status(__func__, {model, numvars, numnz, array(vbeg, numvars), array(vind, numnz),
                           array(vval, numnz), array(obj, numvars), array(lb, numvars),
                           array(ub, numvars), array(vtype, numvars), names(varnames, numvars)});
}

int KLOdelvars(KLOmodel* model, int numdel, const int* ind) {
  return status(__func__, {model, numdel, array(ind, numdel)});
}

int KLOgetvars(KLOmodel* model, int* numnzP, int* vbeg, int* vind, double* vval, int start,
               int len) {
  return status(__func__, {model, out(numnzP), out(vbeg), out(vind), out(vval), start, len});
}

int KLOgetvarbyname(KLOmodel* model, const char* name, int* indexP) {
  return status(__func__, {model, text(name), out(indexP)});
}

int KLOaddconstrs(KLOmodel* model, int numconstrs, int numnz, const int* cbeg, const int* cind,
                  const double* cval, const char* sense, const double* rhs,
                  const char* const* constrnames) {
  return status(__func__, {model, numconstrs, numnz, array(cbeg, numconstrs), array(cind, numnz),
                           array(cval, numnz), array(sense, numconstrs), array(rhs, numconstrs),
                           names(constrnames, numconstrs)});
}

int KLOaddrangeconstr(KLOmodel* model, int numnz, const int* cind, const double* cval, double lower,
                      double upper, const char* constrname) {
  return status(__func__, {model, numnz, array(cind, numnz), array(cval, numnz), lower, upper,
                           text(constrname)});
}

int KLOaddrangeconstrs(KLOmodel* model, int numconstrs, int numnz, const int* cbeg, const int* cind,
                       const double* cval, const double* lower, const double* upper,
                       const char* const* constrnames) {
  return status(__func__, {model, numconstrs, numnz, array(cbeg, numconstrs), array(cind, numnz),
                           array(cval, numnz), array(lower, numconstrs), array(upper, numconstrs),
                           names(constrnames, numconstrs)});
}

int KLOdelconstrs(KLOmodel* model, int numdel, const int* ind) {
  return status(__func__, {model, numdel, array(ind, numdel)});
}

int KLOgetconstrs(KLOmodel* model, int* numnzP, int* cbeg, int* cind, double* cval, int start,
                  int len) {
  return status(__func__, {model, out(numnzP), out(cbeg), out(cind), out(cval), start, len});
}

int KLOgetconstrbyname(KLOmodel* model, const char* name, int* indexP) {
  return status(__func__, {model, text(name), out(indexP)});
}

int KLOsetconstrcoeff(KLOmodel* model, int constr, int var, double value) {
  return status(__func__, {model, constr, var, value});
}

int KLOgetconstrcoeff(KLOmodel* model, int constr, int var, double* valueP) {
  return status(__func__, {model, constr, var, out(valueP)});
}

int KLOaddqconstr(KLOmodel* model, int numlnz, const int* lind, const double* lval, int numqnz,
                  const int* qrow, const int* qcol, const double* qval, char sense, double rhs,
                  const char* constrname) {
  return status(__func__, {model, numlnz, array(lind, numlnz), array(lval, numlnz), numqnz,
                           array(qrow, numqnz), array(qcol, numqnz), array(qval, numqnz), sense,
                           rhs, text(constrname)});
}

int KLOgetqconstr(KLOmodel* model, int constr, int* numlnzP, int* lind, double* lval, int* numqnzP,
                  int* qrow, int* qcol, double* qval) {
  return status(__func__, {model, constr, out(numlnzP), out(lind), out(lval), out(numqnzP),
                           out(qrow), out(qcol), out(qval)});
}

int KLOaddqpterms(KLOmodel* model, int numqnz, const int* qrow, const int* qcol,
                  const double* qval) {
  return status(__func__,
                {model, numqnz, array(qrow, numqnz), array(qcol, numqnz), array(qval, numqnz)});
}

int KLOgetq(KLOmodel* model, int* numqnzP, int* qrow, int* qcol, double* qval) {
  return status(__func__, {model, out(numqnzP), out(qrow), out(qcol), out(qval)});
}

int KLOdelq(KLOmodel* model) { return status(__func__, {model}); }

int KLOaddpsdvar(KLOmodel* model, int dim, const char* name) {
  return status(__func__, {model, dim, text(name)});
}

int KLOdelpsdvars(KLOmodel* model, int numdel, const int* ind) {
  return status(__func__, {model, numdel, array(ind, numdel)});
}

// mbeg holds numpsd + 1 offsets; the last is the number of matrix entries.
int KLOaddrangepsdconstr(KLOmodel* model, int numnz, const int* cind, const double* cval,
                         int numpsd, const int* psdvar, const int* mbeg, const int* mind,
                         const double* mval, double lower, double upper, const char* constrname) {
  const int offsets = mbeg && numpsd >= 0 ? numpsd + 1 : 0;
  const int entries = offsets > 0 ? mbeg[numpsd] : 0;
  return status(__func__, {model, numnz, array(cind, numnz), array(cval, numnz), numpsd,
                           array(psdvar, numpsd), array(mbeg, offsets), array(mind, entries),
                           array(mval, entries), lower, upper, text(constrname)});
}

int KLOaddsos(KLOmodel* model, int numsos, int nummembers, const int* types, const int* beg,
              const int* ind, const double* weight) {
  return status(__func__, {model, numsos, nummembers, array(types, numsos), array(beg, numsos),
                           array(ind, nummembers), array(weight, nummembers)});
}

int KLOdelsos(KLOmodel* model, int numdel, const int* ind) {
  return status(__func__, {model, numdel, array(ind, numdel)});
}

int KLOgetsos(KLOmodel* model, int* nummembersP, int* types, int* beg, int* ind, double* weight,
              int start, int len) {
  return status(__func__,
                {model, out(nummembersP), out(types), out(beg), out(ind), out(weight), start, len});
}

int KLOaddgenconstrIndicator(KLOmodel* model, const char* name, int binvar, int binval, int nvars,
                             const int* ind, const double* val, char sense, double rhs) {
  return status(__func__, {model, text(name), binvar, binval, nvars, array(ind, nvars),
                           array(val, nvars), sense, rhs});
}

int KLOgetgenconstrIndicator(KLOmodel* model, int genconstr, int* binvarP, int* binvalP,
                             int* nvarsP, int* ind, double* val, char* senseP, double* rhsP) {
  return status(__func__, {model, genconstr, out(binvarP), out(binvalP), out(nvarsP), out(ind),
                           out(val), out(senseP), out(rhsP)});
}

int KLOdelgenconstrs(KLOmodel* model, int numdel, const int* ind) {
  return status(__func__, {model, numdel, array(ind, numdel)});
}

int KLOsetobjectiven(KLOmodel* model, int index, int priority, double weight, double abstol,
                     double reltol, const char* name, double constant, int lnz, const int* lind,
                     const double* lval) {
  return status(__func__, {model, index, priority, weight, abstol, reltol, text(name), constant,
                           lnz, array(lind, lnz), array(lval, lnz)});
}

}  // extern "C"
