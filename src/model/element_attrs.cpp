#include "model/element_attrs.h"

#include "env/check.h"
#include "env/names.h"
#include "klo_c.h"

namespace klo_detail {
namespace {

// The library model of a live element: a removed one (negative index) is
// refused before the library is asked.
KLOmodel* live(const Element& e) {
  if (e.index < 0) raise(e.removedCode);
  return static_cast<KLOmodel*>(e.model);
}

}  // namespace

int getAttr(const Element& e, KLO_IntAttr attr) {
  int value = 0;
  check(KLOgetintattrelement(live(e), name(attr), e.index, &value));
  return value;
}

char getAttr(const Element& e, KLO_CharAttr attr) {
  char value = 0;
  check(KLOgetcharattrelement(live(e), name(attr), e.index, &value));
  return value;
}

double getAttr(const Element& e, KLO_DoubleAttr attr) {
  double value = 0.0;
  check(KLOgetdblattrelement(live(e), name(attr), e.index, &value));
  return value;
}

std::string getAttr(const Element& e, KLO_StringAttr attr) {
  const char* value = nullptr;
  check(KLOgetstrattrelement(live(e), name(attr), e.index, &value));
  return value ? value : "";
}

KLOMatrix getAttr(const Element& e, KLO_MatAttr attr) {
  KLOmodel* model = live(e);
  int nnz = 0, rows = 0, cols = 0;
  check(KLOgetmatattrelement(model, name(attr), e.index, &nnz, &rows, &cols, nullptr, nullptr));
  KLOMatrix m(rows, cols, nnz);
  check(
      KLOgetmatattrelement(model, name(attr), e.index, &nnz, &rows, &cols, m.indices(), m.data()));
  return m;
}

void setAttr(const Element& e, KLO_IntAttr attr, int value) {
  check(KLOsetintattrelement(live(e), name(attr), e.index, value));
}

void setAttr(const Element& e, KLO_CharAttr attr, char value) {
  check(KLOsetcharattrelement(live(e), name(attr), e.index, value));
}

void setAttr(const Element& e, KLO_DoubleAttr attr, double value) {
  check(KLOsetdblattrelement(live(e), name(attr), e.index, value));
}

void setAttr(const Element& e, KLO_StringAttr attr, const std::string& value) {
  check(KLOsetstrattrelement(live(e), name(attr), e.index, value.c_str()));
}

void setAttr(const Element& e, KLO_MatAttr attr, const KLOMatrix& value) {
  check(KLOsetmatattrelement(live(e), name(attr), e.index, value.nonzeros(), value.rows(),
                             value.cols(), value.indices(), value.data()));
}

}  // namespace klo_detail
