// Attribute functions of klo_c.h: thin wrappers over the attribute table.
#include <cmath>
#include <string>

#include "attr/attributes.h"
#include "capi/model_guard.h"
#include "common/error.h"
#include "store/edit.h"

using klo::AttrDef;
using klo::AttrType;
using klo::changeModel;
using klo::readModel;
using klo::requireArg;

namespace {

const AttrDef& find(const char* name, AttrType type, bool element) {
  requireArg(name, "attrname");
  return klo::findAttr(name, type, element);
}

template <class T>
int getNum(KLOmodel* model, const char* name, AttrType type, bool element, int e, T* valueP) {
  return readModel(model, [&] {
    const AttrDef& d = find(name, type, element);
    requireArg(valueP, "valueP");
    if (element) klo::checkElement(*model, d, e);
    *valueP = static_cast<T>(d.get(*model, e));
  });
}

int setNum(KLOmodel* model, const char* name, AttrType type, bool element, int e, double v) {
  return changeModel(model, [&] {
    const AttrDef& d = find(name, type, element);
    klo::requireSettable(d);
    if (element) klo::checkElement(*model, d, e);
    d.check(*model, e, v);
    d.set(*model, e, v);
    return d.keepsResults;
  });
}

template <class T>
int getArray(KLOmodel* model, const char* name, AttrType type, int start, int len, T* values) {
  return readModel(model, [&] {
    const AttrDef& d = find(name, type, true);
    klo::checkElementRange(*model, d, start, len);
    if (len > 0) requireArg(values, "values");
    for (int k = 0; k < len; ++k) values[k] = static_cast<T>(d.get(*model, start + k));
  });
}

template <class T>
int setArray(KLOmodel* model, const char* name, AttrType type, int start, int len,
             const T* values) {
  return changeModel(model, [&] {
    const AttrDef& d = find(name, type, true);
    klo::requireSettable(d);
    klo::checkElementRange(*model, d, start, len);
    if (len > 0) requireArg(values, "values");
    for (int k = 0; k < len; ++k) d.check(*model, start + k, static_cast<double>(values[k]));
    for (int k = 0; k < len; ++k) d.set(*model, start + k, static_cast<double>(values[k]));
    return d.keepsResults;
  });
}

int getStr(KLOmodel* model, const char* name, bool element, int e, const char** valueP) {
  return readModel(model, [&] {
    const AttrDef& d = find(name, AttrType::String, element);
    requireArg(valueP, "valueP");
    if (element) klo::checkElement(*model, d, e);
    *valueP = d.getStr(*model, e).c_str();
  });
}

int setStr(KLOmodel* model, const char* name, bool element, int e, const char* value) {
  return changeModel(model, [&] {
    const AttrDef& d = find(name, AttrType::String, element);
    requireArg(value, "newvalue");
    if (element) klo::checkElement(*model, d, e);
    d.setStr(*model, e, value);
    return true;
  });
}

}  // namespace

extern "C" {

int KLOgetintattr(KLOmodel* model, const char* attrname, int* valueP) {
  return getNum(model, attrname, AttrType::Int, false, 0, valueP);
}
int KLOsetintattr(KLOmodel* model, const char* attrname, int newvalue) {
  return setNum(model, attrname, AttrType::Int, false, 0, newvalue);
}
int KLOgetdblattr(KLOmodel* model, const char* attrname, double* valueP) {
  return getNum(model, attrname, AttrType::Double, false, 0, valueP);
}
int KLOsetdblattr(KLOmodel* model, const char* attrname, double newvalue) {
  return setNum(model, attrname, AttrType::Double, false, 0, newvalue);
}
int KLOgetstrattr(KLOmodel* model, const char* attrname, const char** valueP) {
  return getStr(model, attrname, false, 0, valueP);
}
int KLOsetstrattr(KLOmodel* model, const char* attrname, const char* newvalue) {
  return setStr(model, attrname, false, 0, newvalue);
}

int KLOgetintattrelement(KLOmodel* model, const char* attrname, int element, int* valueP) {
  return getNum(model, attrname, AttrType::Int, true, element, valueP);
}
int KLOsetintattrelement(KLOmodel* model, const char* attrname, int element, int newvalue) {
  return setNum(model, attrname, AttrType::Int, true, element, newvalue);
}
int KLOgetdblattrelement(KLOmodel* model, const char* attrname, int element, double* valueP) {
  return getNum(model, attrname, AttrType::Double, true, element, valueP);
}
int KLOsetdblattrelement(KLOmodel* model, const char* attrname, int element, double newvalue) {
  return setNum(model, attrname, AttrType::Double, true, element, newvalue);
}
int KLOgetcharattrelement(KLOmodel* model, const char* attrname, int element, char* valueP) {
  return getNum(model, attrname, AttrType::Char, true, element, valueP);
}
int KLOsetcharattrelement(KLOmodel* model, const char* attrname, int element, char newvalue) {
  return setNum(model, attrname, AttrType::Char, true, element, newvalue);
}
int KLOgetstrattrelement(KLOmodel* model, const char* attrname, int element, const char** valueP) {
  return getStr(model, attrname, true, element, valueP);
}
int KLOsetstrattrelement(KLOmodel* model, const char* attrname, int element, const char* newvalue) {
  return setStr(model, attrname, true, element, newvalue);
}

int KLOgetintattrarray(KLOmodel* model, const char* attrname, int start, int len, int* values) {
  return getArray(model, attrname, AttrType::Int, start, len, values);
}
int KLOsetintattrarray(KLOmodel* model, const char* attrname, int start, int len,
                       const int* values) {
  return setArray(model, attrname, AttrType::Int, start, len, values);
}
int KLOgetdblattrarray(KLOmodel* model, const char* attrname, int start, int len, double* values) {
  return getArray(model, attrname, AttrType::Double, start, len, values);
}
int KLOsetdblattrarray(KLOmodel* model, const char* attrname, int start, int len,
                       const double* values) {
  return setArray(model, attrname, AttrType::Double, start, len, values);
}
int KLOgetcharattrarray(KLOmodel* model, const char* attrname, int start, int len, char* values) {
  return getArray(model, attrname, AttrType::Char, start, len, values);
}
int KLOsetcharattrarray(KLOmodel* model, const char* attrname, int start, int len,
                        const char* values) {
  return setArray(model, attrname, AttrType::Char, start, len, values);
}

int KLOgetmatattrelement(KLOmodel* model, const char* attrname, int element, int* nnzP, int* nrowsP,
                         int* ncolsP, int* ind, double* val) {
  return readModel(model, [&] {
    const AttrDef& d = find(attrname, AttrType::Matrix, true);
    requireArg(nnzP, "nnzP");
    klo::checkElement(*model, d, element);
    const klo::SymMatrix* m = &model->data.psdVars[element].obj;
    if (std::string(attrname) == "PsdX") {
      klo::solution(*model);
      if (model->results.psdX.empty())
        klo::fail(KLO_ERROR_DATA_NOT_AVAILABLE, "The last solve gave no PSD values");
      m = &model->results.psdX[element];
    }
    int dim = model->data.psdVars[element].dim;
    *nnzP = m->size();
    klo::putIf(nrowsP, dim);
    klo::putIf(ncolsP, dim);
    for (int k = 0; k < m->size(); ++k) {
      if (ind) ind[k] = m->pos[k];
      if (val) val[k] = m->val[k];
    }
  });
}

int KLOsetmatattrelement(KLOmodel* model, const char* attrname, int element, int nnz, int nrows,
                         int ncols, const int* ind, const double* val) {
  return changeModel(model, [&] {
    const AttrDef& d = find(attrname, AttrType::Matrix, true);
    klo::requireSettable(d);
    klo::setPsdObj(model->data, element, nnz, nrows, ncols, ind, val);
  });
}

}  // extern "C"
