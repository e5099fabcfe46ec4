// Model lifecycle functions of klo_c.h, recorded and scripted.  Unscripted,
// the functions that make environments and models hand out fresh handles.
#include "engine.h"

using namespace klo_fake;

extern "C" {

int KLOnewmodel(KLOenv* env, KLOmodel** modelP, const char* Pname, int numvars, const double* obj,
                const double* lb, const double* ub, const char* vtype,
                const char* const* varnames) {
  return status(__func__,
                {env, out(modelP), text(Pname), numvars, array(obj, numvars), array(lb, numvars),
                 array(ub, numvars), array(vtype, numvars), names(varnames, numvars)});
}

int KLOreadmodel(KLOenv* env, const char* filename, KLOmodel** modelP) {
  return status(__func__, {env, text(filename), out(modelP)});
}

KLOmodel* KLOcopymodel(KLOmodel* model) {
  return handle<KLOmodel>(__func__, {model}, Engine::fresh());
}

int KLOfreemodel(KLOmodel* model) { return status(__func__, {model}); }

int KLOread(KLOmodel* model, const char* filename) {
  return status(__func__, {model, text(filename)});
}

int KLOwrite(KLOmodel* model, const char* filename) {
  return status(__func__, {model, text(filename)});
}

int KLOrelaxmodel(KLOmodel* model, KLOmodel** relaxedP) {
  return status(__func__, {model, out(relaxedP)});
}

int KLOoptimize(KLOmodel* model) { return status(__func__, {model}); }

int KLOcomputeIIS(KLOmodel* model) { return status(__func__, {model}); }

int KLOfeasrelax(KLOmodel* model, int relaxobjtype, int minrelax, const double* lbpen,
                 const double* ubpen, const double* rhspen, double* feasobjP) {
  return status(__func__, {model, relaxobjtype, minrelax, unsized(lbpen), unsized(ubpen),
                           unsized(rhspen), out(feasobjP)});
}

int KLOreset(KLOmodel* model, int clearall) { return status(__func__, {model, clearall}); }

KLOenv* KLOgetenv(KLOmodel* model) {
  return handle<KLOenv>(__func__, {model}, Engine::instance().environmentOf(model, -1));
}

KLOenv* KLOgetmultiobjenv(KLOmodel* model, int num) {
  return handle<KLOenv>(__func__, {model, num}, Engine::instance().environmentOf(model, num));
}

int KLOdiscardmultiobjenvs(KLOmodel* model) { return status(__func__, {model}); }

int KLOsetcallbackfunc(KLOmodel* model, KLOcallbackfn cb, void* usrdata) {
  const int s = status(__func__, {model, ptr(reinterpret_cast<const void*>(cb)), ptr(usrdata)});
  // Like the library, a refused registration leaves the previous one.
  if (s == 0) Engine::instance().callback = Registered{cb, usrdata};
  return s;
}

}  // extern "C"
