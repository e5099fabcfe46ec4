// Attribute functions of klo_c.h (whole-model, element, array and matrix
// forms), recorded and scripted; on(function, attrname) scripts one name.
#include "engine.h"

using namespace klo_fake;

extern "C" {

int KLOgetintattr(KLOmodel* model, const char* attrname, int* valueP) {
  return status(__func__, {model, text(attrname), out(valueP)});
}

int KLOsetintattr(KLOmodel* model, const char* attrname, int newvalue) {
  return status(__func__, {model, text(attrname), newvalue});
}

int KLOgetdblattr(KLOmodel* model, const char* attrname, double* valueP) {
  return status(__func__, {model, text(attrname), out(valueP)});
}

int KLOsetdblattr(KLOmodel* model, const char* attrname, double newvalue) {
  return status(__func__, {model, text(attrname), newvalue});
}

int KLOgetstrattr(KLOmodel* model, const char* attrname, const char** valueP) {
  return status(__func__, {model, text(attrname), out(valueP)});
}

int KLOsetstrattr(KLOmodel* model, const char* attrname, const char* newvalue) {
  return status(__func__, {model, text(attrname), text(newvalue)});
}

int KLOgetintattrelement(KLOmodel* model, const char* attrname, int element, int* valueP) {
  return status(__func__, {model, text(attrname), element, out(valueP)});
}

int KLOsetintattrelement(KLOmodel* model, const char* attrname, int element, int newvalue) {
  return status(__func__, {model, text(attrname), element, newvalue});
}

int KLOgetdblattrelement(KLOmodel* model, const char* attrname, int element, double* valueP) {
  return status(__func__, {model, text(attrname), element, out(valueP)});
}

int KLOsetdblattrelement(KLOmodel* model, const char* attrname, int element, double newvalue) {
  return status(__func__, {model, text(attrname), element, newvalue});
}

int KLOgetcharattrelement(KLOmodel* model, const char* attrname, int element, char* valueP) {
  return status(__func__, {model, text(attrname), element, out(valueP)});
}

int KLOsetcharattrelement(KLOmodel* model, const char* attrname, int element, char newvalue) {
  return status(__func__, {model, text(attrname), element, newvalue});
}

int KLOgetstrattrelement(KLOmodel* model, const char* attrname, int element, const char** valueP) {
  return status(__func__, {model, text(attrname), element, out(valueP)});
}

int KLOsetstrattrelement(KLOmodel* model, const char* attrname, int element, const char* newvalue) {
  return status(__func__, {model, text(attrname), element, text(newvalue)});
}

int KLOgetintattrarray(KLOmodel* model, const char* attrname, int start, int len, int* values) {
  return status(__func__, {model, text(attrname), start, len, out(values)});
}

int KLOsetintattrarray(KLOmodel* model, const char* attrname, int start, int len,
                       const int* values) {
  return status(__func__, {model, text(attrname), start, len, array(values, len)});
}

int KLOgetdblattrarray(KLOmodel* model, const char* attrname, int start, int len, double* values) {
  return status(__func__, {model, text(attrname), start, len, out(values)});
}

int KLOsetdblattrarray(KLOmodel* model, const char* attrname, int start, int len,
                       const double* values) {
  return status(__func__, {model, text(attrname), start, len, array(values, len)});
}

int KLOgetcharattrarray(KLOmodel* model, const char* attrname, int start, int len, char* values) {
  return status(__func__, {model, text(attrname), start, len, out(values)});
}

int KLOsetcharattrarray(KLOmodel* model, const char* attrname, int start, int len,
                        const char* values) {
  return status(__func__, {model, text(attrname), start, len, array(values, len)});
}

int KLOgetmatattrelement(KLOmodel* model, const char* attrname, int element, int* nnzP, int* nrowsP,
                         int* ncolsP, int* ind, double* val) {
  return status(__func__, {model, text(attrname), element, out(nnzP), out(nrowsP), out(ncolsP),
                           out(ind), out(val)});
}

int KLOsetmatattrelement(KLOmodel* model, const char* attrname, int element, int nnz, int nrows,
                         int ncols, const int* ind, const double* val) {
  return status(__func__, {model, text(attrname), element, nnz, nrows, ncols, array(ind, nnz),
                           array(val, nnz)});
}

}  // extern "C"
