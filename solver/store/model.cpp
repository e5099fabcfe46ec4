#include "store/model.h"

KLOmodel::KLOmodel(const KLOenv& from) : env(from) {
  env.ownedByModel = true;
  env.lastError.clear();
}

KLOmodel::KLOmodel(const KLOmodel& other)
    : env(other.env), data(other.data), results(other.results) {
  env.lastError.clear();
}

void KLOmodel::changed(bool keepResults) {
  if (!keepResults) results = klo::Results();
  columns_.reset();
}

const klo::ColumnView& KLOmodel::columns() const {
  if (columns_) return *columns_;
  auto view = std::make_unique<klo::ColumnView>();
  int n = data.numVars();
  view->beg.assign(n + 1, 0);
  for (const klo::Row& r : data.rows)
    for (int j : r.lin.ind) ++view->beg[j + 1];
  for (int j = 0; j < n; ++j) view->beg[j + 1] += view->beg[j];
  view->row.resize(view->beg[n]);
  view->val.resize(view->beg[n]);
  std::vector<int> next(view->beg.begin(), view->beg.end() - 1);
  for (int i = 0; i < data.numRows(); ++i) {
    const klo::SparseVec& lin = data.rows[i].lin;
    for (int k = 0; k < lin.size(); ++k) {
      int p = next[lin.ind[k]]++;
      view->row[p] = i;
      view->val[p] = lin.val[k];
    }
  }
  columns_ = std::move(view);
  return *columns_;
}
