// The object layer's own access to the private parts of handles and models:
// only the model makes identity records, and tests inspect the model's
// handle vectors through the same door.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "klo_cpp.h"

namespace klo_detail {

struct Access {
  template <class H>
  static const auto& id(const H& h) {
    return h.id_;
  }

  // A handle over a fresh identity record.
  template <class H, class ID>
  static H make(void* model, int index) {
    H h;
    h.id_ = std::make_shared<ID>(ID{model, index});
    return h;
  }

  // An expression's terms read in place: element access would make a
  // shared buffer private, which a read that keeps nothing does not need.
  template <class T>
  static const T* data(const Vec<T>& v) {
    return v.vec ? v.vec->data() : nullptr;
  }
  static const Vec<double>& coeffs(const KLOLinExpr& e) { return *e.coeffs_; }
  static const Vec<KLOVar>& vars(const KLOLinExpr& e) { return *e.vars_; }
  static const Vec<double>& coeffs(const KLOQuadExpr& q) { return *q.coeffs_; }
  static const Vec<KLOVar>& vars1(const KLOQuadExpr& q) { return *q.vars1_; }
  static const Vec<KLOVar>& vars2(const KLOQuadExpr& q) { return *q.vars2_; }
  static const KLOLinExpr& linear(const KLOQuadExpr& q) { return q.linear_; }
  static KLOLinExpr& linear(KLOQuadExpr& q) { return q.linear_; }

  static void* model(const KLOModel& m) { return m.model_; }
  static const std::vector<KLOVar>& vars(const KLOModel& m) { return m.vars_; }
  static const std::vector<KLOConstr>& constrs(const KLOModel& m) { return m.constrs_; }
  static const std::vector<KLOQConstr>& qconstrs(const KLOModel& m) { return m.qconstrs_; }
  static const std::vector<KLOPsdConstr>& psdconstrs(const KLOModel& m) { return m.psdconstrs_; }
  static const std::vector<KLOPsdVar>& psdvars(const KLOModel& m) { return m.psdvars_; }
  static const std::vector<KLOSOS>& sos(const KLOModel& m) { return m.sos_; }
  static const std::vector<KLOGenConstr>& genconstrs(const KLOModel& m) { return m.genconstrs_; }
};

}  // namespace klo_detail
