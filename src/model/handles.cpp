#include <string>

#include "klo_cpp.h"
#include "model/element_attrs.h"
#include "model/records.h"

namespace klo_detail {

void emptyHandle(const char* handleClass, int code) {
  throw KLOException(std::string("The ") + handleClass +
                         " handle is empty: it was default-constructed and names no model element.",
                     code);
}

}  // namespace klo_detail

using klo_detail::element;
using klo_detail::getAttr;
using klo_detail::record;
using klo_detail::setAttr;

// KLOVar
int KLOVar::index() const { return record(*this).index; }
bool KLOVar::sameAs(KLOVar other) const { return &record(*this) == &record(other); }
int KLOVar::get(KLO_IntAttr attr) const { return getAttr(element(*this), attr); }
void KLOVar::set(KLO_IntAttr attr, int value) const { setAttr(element(*this), attr, value); }
char KLOVar::get(KLO_CharAttr attr) const { return getAttr(element(*this), attr); }
void KLOVar::set(KLO_CharAttr attr, char value) const { setAttr(element(*this), attr, value); }
double KLOVar::get(KLO_DoubleAttr attr) const { return getAttr(element(*this), attr); }
void KLOVar::set(KLO_DoubleAttr attr, double value) const { setAttr(element(*this), attr, value); }
std::string KLOVar::get(KLO_StringAttr attr) const { return getAttr(element(*this), attr); }
void KLOVar::set(KLO_StringAttr attr, const std::string& value) const {
  setAttr(element(*this), attr, value);
}

// KLOConstr
int KLOConstr::index() const { return record(*this).index; }
bool KLOConstr::sameAs(KLOConstr other) const { return &record(*this) == &record(other); }
int KLOConstr::get(KLO_IntAttr attr) const { return getAttr(element(*this), attr); }
void KLOConstr::set(KLO_IntAttr attr, int value) const { setAttr(element(*this), attr, value); }
char KLOConstr::get(KLO_CharAttr attr) const { return getAttr(element(*this), attr); }
void KLOConstr::set(KLO_CharAttr attr, char value) const { setAttr(element(*this), attr, value); }
double KLOConstr::get(KLO_DoubleAttr attr) const { return getAttr(element(*this), attr); }
void KLOConstr::set(KLO_DoubleAttr attr, double value) const {
  setAttr(element(*this), attr, value);
}
std::string KLOConstr::get(KLO_StringAttr attr) const { return getAttr(element(*this), attr); }
void KLOConstr::set(KLO_StringAttr attr, const std::string& value) const {
  setAttr(element(*this), attr, value);
}

// KLOQConstr
int KLOQConstr::index() const { return record(*this).index; }
bool KLOQConstr::sameAs(KLOQConstr other) const { return &record(*this) == &record(other); }
double KLOQConstr::get(KLO_DoubleAttr attr) const { return getAttr(element(*this), attr); }
void KLOQConstr::set(KLO_DoubleAttr attr, double value) const {
  setAttr(element(*this), attr, value);
}
std::string KLOQConstr::get(KLO_StringAttr attr) const { return getAttr(element(*this), attr); }
void KLOQConstr::set(KLO_StringAttr attr, const std::string& value) const {
  setAttr(element(*this), attr, value);
}

// KLOPsdVar
int KLOPsdVar::index() const { return record(*this).index; }
bool KLOPsdVar::sameAs(KLOPsdVar other) const { return &record(*this) == &record(other); }
int KLOPsdVar::get(KLO_IntAttr attr) const { return getAttr(element(*this), attr); }
void KLOPsdVar::set(KLO_IntAttr attr, int value) const { setAttr(element(*this), attr, value); }
std::string KLOPsdVar::get(KLO_StringAttr attr) const { return getAttr(element(*this), attr); }
void KLOPsdVar::set(KLO_StringAttr attr, const std::string& value) const {
  setAttr(element(*this), attr, value);
}
KLOMatrix KLOPsdVar::get(KLO_MatAttr attr) const { return getAttr(element(*this), attr); }
void KLOPsdVar::set(KLO_MatAttr attr, const KLOMatrix& value) const {
  setAttr(element(*this), attr, value);
}

// KLOPsdConstr
int KLOPsdConstr::index() const { return record(*this).index; }
bool KLOPsdConstr::sameAs(KLOPsdConstr other) const { return &record(*this) == &record(other); }
double KLOPsdConstr::get(KLO_DoubleAttr attr) const { return getAttr(element(*this), attr); }
void KLOPsdConstr::set(KLO_DoubleAttr attr, double value) const {
  setAttr(element(*this), attr, value);
}
std::string KLOPsdConstr::get(KLO_StringAttr attr) const { return getAttr(element(*this), attr); }
void KLOPsdConstr::set(KLO_StringAttr attr, const std::string& value) const {
  setAttr(element(*this), attr, value);
}

// KLOGenConstr
int KLOGenConstr::index() const { return record(*this).index; }
bool KLOGenConstr::sameAs(KLOGenConstr other) const { return &record(*this) == &record(other); }
int KLOGenConstr::get(KLO_IntAttr attr) const { return getAttr(element(*this), attr); }
void KLOGenConstr::set(KLO_IntAttr attr, int value) const { setAttr(element(*this), attr, value); }
std::string KLOGenConstr::get(KLO_StringAttr attr) const { return getAttr(element(*this), attr); }
void KLOGenConstr::set(KLO_StringAttr attr, const std::string& value) const {
  setAttr(element(*this), attr, value);
}

// KLOSOS
int KLOSOS::index() const { return record(*this).index; }
bool KLOSOS::sameAs(KLOSOS other) const { return &record(*this) == &record(other); }
int KLOSOS::get(KLO_IntAttr attr) const { return getAttr(element(*this), attr); }
void KLOSOS::set(KLO_IntAttr attr, int value) const { setAttr(element(*this), attr, value); }
