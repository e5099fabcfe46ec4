// Quadratic rows and the quadratic objective.
#include "capi/model_guard.h"
#include "store/checks.h"
#include "store/edit.h"
#include "store/sparse.h"

using klo::changeModel;
using klo::readModel;
using klo::requireArg;

namespace {

void copyQuad(const klo::QuadTerms& q, int* numP, int* row, int* col, double* val) {
  requireArg(numP, "numqnzP");
  *numP = q.size();
  for (int k = 0; k < q.size(); ++k) {
    if (row) row[k] = q.row[k];
    if (col) col[k] = q.col[k];
    if (val) val[k] = q.val[k];
  }
}

}  // namespace

extern "C" {

int KLOaddqconstr(KLOmodel* model, int numlnz, const int* lind, const double* lval, int numqnz,
                  const int* qrow, const int* qcol, const double* qval, char sense, double rhs,
                  const char* constrname) {
  return changeModel(model, [&] {
    klo::Row row;
    row.lin = klo::makeSparse(numlnz, lind, lval, model->data.numVars());
    klo::QuadTerms q = klo::makeQuad(numqnz, qrow, qcol, qval, model->data.numVars());
    if (q.size() > 0) row.nl.ensure().quad = std::move(q);
    klo::senseToBounds(sense, rhs, row.lower, row.upper);
    klo::appendRow(model->data, std::move(row), constrname);
  });
}

int KLOgetqconstr(KLOmodel* model, int constr, int* numlnzP, int* lind, double* lval, int* numqnzP,
                  int* qrow, int* qcol, double* qval) {
  return readModel(model, [&] {
    requireArg(numlnzP, "numlnzP");
    requireArg(numqnzP, "numqnzP");
    klo::checkIndex(model->data, klo::Kind::Row, constr);
    const klo::Row& r = model->data.rows[constr];
    *numlnzP = r.lin.size();
    for (int k = 0; k < r.lin.size(); ++k) {
      if (lind) lind[k] = r.lin.ind[k];
      if (lval) lval[k] = r.lin.val[k];
    }
    copyQuad(r.nl ? r.nl->quad : klo::QuadTerms(), numqnzP, qrow, qcol, qval);
  });
}

int KLOaddqpterms(KLOmodel* model, int numqnz, const int* qrow, const int* qcol,
                  const double* qval) {
  return changeModel(model, [&] { klo::addObjQuad(model->data, numqnz, qrow, qcol, qval); });
}

int KLOgetq(KLOmodel* model, int* numqnzP, int* qrow, int* qcol, double* qval) {
  return readModel(model, [&] { copyQuad(model->data.qobj, numqnzP, qrow, qcol, qval); });
}

int KLOdelq(KLOmodel* model) {
  return changeModel(model, [&] { model->data.qobj = klo::QuadTerms(); });
}

}  // extern "C"
