// Attribute access on one model element, with the removed-element check
// that every handle class shares.
#pragma once

#include <string>

#include "klo_cpp.h"
#include "model/records.h"

namespace klo_detail {

struct Element {
  void* model;
  int index;
  int removedCode;
};

template <class H>
Element element(const H& h) {
  const auto& r = record(h);
  return {r.model, r.index, HandleTraits<H>::removedCode};
}

int getAttr(const Element& e, KLO_IntAttr attr);
char getAttr(const Element& e, KLO_CharAttr attr);
double getAttr(const Element& e, KLO_DoubleAttr attr);
std::string getAttr(const Element& e, KLO_StringAttr attr);
KLOMatrix getAttr(const Element& e, KLO_MatAttr attr);

void setAttr(const Element& e, KLO_IntAttr attr, int value);
void setAttr(const Element& e, KLO_CharAttr attr, char value);
void setAttr(const Element& e, KLO_DoubleAttr attr, double value);
void setAttr(const Element& e, KLO_StringAttr attr, const std::string& value);
void setAttr(const Element& e, KLO_MatAttr attr, const KLOMatrix& value);

}  // namespace klo_detail
