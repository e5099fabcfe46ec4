// Functions of klo_c.h that this build of the library does not implement
// yet: each refuses with KLO_ERROR_NOT_SUPPORTED instead of pretending.
#include <string>

#include "capi/guard.h"
#include "env/environment.h"

namespace {

int pending(const char*) { return KLO_ERROR_NOT_SUPPORTED; }

// Model creation: an unstarted environment is refused first.
int pendingOnEnv(KLOenv* env, const char* fn) {
  if (!env) return KLO_ERROR_NULL_ARGUMENT;
  if (!env->started)
    return klo::record(env, KLO_ERROR_ENV_NOT_STARTED,
                       "The environment has not been started (call KLOstartenv first)");
  return klo::record(env, KLO_ERROR_NOT_SUPPORTED,
                     std::string(fn) + " is not implemented in this build of the library");
}

}  // namespace

extern "C" {

int KLOnewmodel(KLOenv *env, KLOmodel ** /*modelP*/, const char * /*Pname*/, int /*numvars*/, const double * /*obj*/, const double * /*lb*/, const double * /*ub*/, const char * /*vtype*/, const char *const * /*varnames*/) {
  return pendingOnEnv(env, "KLOnewmodel");
}

int KLOreadmodel(KLOenv *env, const char * /*filename*/, KLOmodel ** /*modelP*/) {
  return pendingOnEnv(env, "KLOreadmodel");
}

KLOmodel * KLOcopymodel(KLOmodel * /*model*/) {
  pending("KLOcopymodel");
  return nullptr;
}

int KLOfreemodel(KLOmodel * /*model*/) {
  return pending("KLOfreemodel");
}

int KLOread(KLOmodel * /*model*/, const char * /*filename*/) {
  return pending("KLOread");
}

int KLOwrite(KLOmodel * /*model*/, const char * /*filename*/) {
  return pending("KLOwrite");
}

int KLOrelaxmodel(KLOmodel * /*model*/, KLOmodel ** /*relaxedP*/) {
  return pending("KLOrelaxmodel");
}

int KLOoptimize(KLOmodel * /*model*/) {
  return pending("KLOoptimize");
}

int KLOcomputeIIS(KLOmodel * /*model*/) {
  return pending("KLOcomputeIIS");
}

int KLOfeasrelax(KLOmodel * /*model*/, int /*relaxobjtype*/, int /*minrelax*/, const double * /*lbpen*/, const double * /*ubpen*/, const double * /*rhspen*/, double * /*feasobjP*/) {
  return pending("KLOfeasrelax");
}

int KLOreset(KLOmodel * /*model*/, int /*clearall*/) {
  return pending("KLOreset");
}

KLOenv * KLOgetenv(KLOmodel * /*model*/) {
  pending("KLOgetenv");
  return nullptr;
}

KLOenv * KLOgetmultiobjenv(KLOmodel * /*model*/, int /*num*/) {
  pending("KLOgetmultiobjenv");
  return nullptr;
}

int KLOdiscardmultiobjenvs(KLOmodel * /*model*/) {
  return pending("KLOdiscardmultiobjenvs");
}

int KLOsetcallbackfunc(KLOmodel * /*model*/, KLOcallbackfn /*cb*/, void * /*usrdata*/) {
  return pending("KLOsetcallbackfunc");
}

int KLOaddvar(KLOmodel * /*model*/, int /*numnz*/, const int * /*vind*/, const double * /*vval*/, double /*obj*/, double /*lb*/, double /*ub*/, char /*vtype*/, const char * /*varname*/) {
  return pending("KLOaddvar");
}

int KLOaddvars(KLOmodel * /*model*/, int /*numvars*/, int /*numnz*/, const int * /*vbeg*/, const int * /*vind*/, const double * /*vval*/, const double * /*obj*/, const double * /*lb*/, const double * /*ub*/, const char * /*vtype*/, const char *const * /*varnames*/) {
  return pending("KLOaddvars");
}

int KLOdelvars(KLOmodel * /*model*/, int /*numdel*/, const int * /*ind*/) {
  return pending("KLOdelvars");
}

int KLOgetvars(KLOmodel * /*model*/, int * /*numnzP*/, int * /*vbeg*/, int * /*vind*/, double * /*vval*/, int /*start*/, int /*len*/) {
  return pending("KLOgetvars");
}

int KLOgetvarbyname(KLOmodel * /*model*/, const char * /*name*/, int * /*indexP*/) {
  return pending("KLOgetvarbyname");
}

int KLOaddconstrs(KLOmodel * /*model*/, int /*numconstrs*/, int /*numnz*/, const int * /*cbeg*/, const int * /*cind*/, const double * /*cval*/, const char * /*sense*/, const double * /*rhs*/, const char *const * /*constrnames*/) {
  return pending("KLOaddconstrs");
}

int KLOaddrangeconstr(KLOmodel * /*model*/, int /*numnz*/, const int * /*cind*/, const double * /*cval*/, double /*lower*/, double /*upper*/, const char * /*constrname*/) {
  return pending("KLOaddrangeconstr");
}

int KLOaddrangeconstrs(KLOmodel * /*model*/, int /*numconstrs*/, int /*numnz*/, const int * /*cbeg*/, const int * /*cind*/, const double * /*cval*/, const double * /*lower*/, const double * /*upper*/, const char *const * /*constrnames*/) {
  return pending("KLOaddrangeconstrs");
}

int KLOdelconstrs(KLOmodel * /*model*/, int /*numdel*/, const int * /*ind*/) {
  return pending("KLOdelconstrs");
}

int KLOgetconstrs(KLOmodel * /*model*/, int * /*numnzP*/, int * /*cbeg*/, int * /*cind*/, double * /*cval*/, int /*start*/, int /*len*/) {
  return pending("KLOgetconstrs");
}

int KLOgetconstrbyname(KLOmodel * /*model*/, const char * /*name*/, int * /*indexP*/) {
  return pending("KLOgetconstrbyname");
}

int KLOsetconstrcoeff(KLOmodel * /*model*/, int /*constr*/, int /*var*/, double /*value*/) {
  return pending("KLOsetconstrcoeff");
}

int KLOgetconstrcoeff(KLOmodel * /*model*/, int /*constr*/, int /*var*/, double * /*valueP*/) {
  return pending("KLOgetconstrcoeff");
}

int KLOaddqconstr(KLOmodel * /*model*/, int /*numlnz*/, const int * /*lind*/, const double * /*lval*/, int /*numqnz*/, const int * /*qrow*/, const int * /*qcol*/, const double * /*qval*/, char /*sense*/, double /*rhs*/, const char * /*constrname*/) {
  return pending("KLOaddqconstr");
}

int KLOgetqconstr(KLOmodel * /*model*/, int /*constr*/, int * /*numlnzP*/, int * /*lind*/, double * /*lval*/, int * /*numqnzP*/, int * /*qrow*/, int * /*qcol*/, double * /*qval*/) {
  return pending("KLOgetqconstr");
}

int KLOaddqpterms(KLOmodel * /*model*/, int /*numqnz*/, const int * /*qrow*/, const int * /*qcol*/, const double * /*qval*/) {
  return pending("KLOaddqpterms");
}

int KLOgetq(KLOmodel * /*model*/, int * /*numqnzP*/, int * /*qrow*/, int * /*qcol*/, double * /*qval*/) {
  return pending("KLOgetq");
}

int KLOdelq(KLOmodel * /*model*/) {
  return pending("KLOdelq");
}

int KLOaddpsdvar(KLOmodel * /*model*/, int /*dim*/, const char * /*name*/) {
  return pending("KLOaddpsdvar");
}

int KLOdelpsdvars(KLOmodel * /*model*/, int /*numdel*/, const int * /*ind*/) {
  return pending("KLOdelpsdvars");
}

int KLOaddrangepsdconstr(KLOmodel * /*model*/, int /*numnz*/, const int * /*cind*/, const double * /*cval*/, int /*numpsd*/, const int * /*psdvar*/, const int * /*mbeg*/, const int * /*mind*/, const double * /*mval*/, double /*lower*/, double /*upper*/, const char * /*constrname*/) {
  return pending("KLOaddrangepsdconstr");
}

int KLOaddsos(KLOmodel * /*model*/, int /*numsos*/, int /*nummembers*/, const int * /*types*/, const int * /*beg*/, const int * /*ind*/, const double * /*weight*/) {
  return pending("KLOaddsos");
}

int KLOdelsos(KLOmodel * /*model*/, int /*numdel*/, const int * /*ind*/) {
  return pending("KLOdelsos");
}

int KLOgetsos(KLOmodel * /*model*/, int * /*nummembersP*/, int * /*types*/, int * /*beg*/, int * /*ind*/, double * /*weight*/, int /*start*/, int /*len*/) {
  return pending("KLOgetsos");
}

int KLOaddgenconstrIndicator(KLOmodel * /*model*/, const char * /*name*/, int /*binvar*/, int /*binval*/, int /*nvars*/, const int * /*ind*/, const double * /*val*/, char /*sense*/, double /*rhs*/) {
  return pending("KLOaddgenconstrIndicator");
}

int KLOgetgenconstrIndicator(KLOmodel * /*model*/, int /*genconstr*/, int * /*binvarP*/, int * /*binvalP*/, int * /*nvarsP*/, int * /*ind*/, double * /*val*/, char * /*senseP*/, double * /*rhsP*/) {
  return pending("KLOgetgenconstrIndicator");
}

int KLOdelgenconstrs(KLOmodel * /*model*/, int /*numdel*/, const int * /*ind*/) {
  return pending("KLOdelgenconstrs");
}

int KLOsetobjectiven(KLOmodel * /*model*/, int /*index*/, int /*priority*/, double /*weight*/, double /*abstol*/, double /*reltol*/, const char * /*name*/, double /*constant*/, int /*lnz*/, const int * /*lind*/, const double * /*lval*/) {
  return pending("KLOsetobjectiven");
}

int KLOgetintattr(KLOmodel * /*model*/, const char * /*attrname*/, int * /*valueP*/) {
  return pending("KLOgetintattr");
}

int KLOsetintattr(KLOmodel * /*model*/, const char * /*attrname*/, int /*newvalue*/) {
  return pending("KLOsetintattr");
}

int KLOgetdblattr(KLOmodel * /*model*/, const char * /*attrname*/, double * /*valueP*/) {
  return pending("KLOgetdblattr");
}

int KLOsetdblattr(KLOmodel * /*model*/, const char * /*attrname*/, double /*newvalue*/) {
  return pending("KLOsetdblattr");
}

int KLOgetstrattr(KLOmodel * /*model*/, const char * /*attrname*/, const char ** /*valueP*/) {
  return pending("KLOgetstrattr");
}

int KLOsetstrattr(KLOmodel * /*model*/, const char * /*attrname*/, const char * /*newvalue*/) {
  return pending("KLOsetstrattr");
}

int KLOgetintattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, int * /*valueP*/) {
  return pending("KLOgetintattrelement");
}

int KLOsetintattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, int /*newvalue*/) {
  return pending("KLOsetintattrelement");
}

int KLOgetdblattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, double * /*valueP*/) {
  return pending("KLOgetdblattrelement");
}

int KLOsetdblattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, double /*newvalue*/) {
  return pending("KLOsetdblattrelement");
}

int KLOgetcharattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, char * /*valueP*/) {
  return pending("KLOgetcharattrelement");
}

int KLOsetcharattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, char /*newvalue*/) {
  return pending("KLOsetcharattrelement");
}

int KLOgetstrattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, const char ** /*valueP*/) {
  return pending("KLOgetstrattrelement");
}

int KLOsetstrattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, const char * /*newvalue*/) {
  return pending("KLOsetstrattrelement");
}

int KLOgetintattrarray(KLOmodel * /*model*/, const char * /*attrname*/, int /*start*/, int /*len*/, int * /*values*/) {
  return pending("KLOgetintattrarray");
}

int KLOsetintattrarray(KLOmodel * /*model*/, const char * /*attrname*/, int /*start*/, int /*len*/, const int * /*values*/) {
  return pending("KLOsetintattrarray");
}

int KLOgetdblattrarray(KLOmodel * /*model*/, const char * /*attrname*/, int /*start*/, int /*len*/, double * /*values*/) {
  return pending("KLOgetdblattrarray");
}

int KLOsetdblattrarray(KLOmodel * /*model*/, const char * /*attrname*/, int /*start*/, int /*len*/, const double * /*values*/) {
  return pending("KLOsetdblattrarray");
}

int KLOgetcharattrarray(KLOmodel * /*model*/, const char * /*attrname*/, int /*start*/, int /*len*/, char * /*values*/) {
  return pending("KLOgetcharattrarray");
}

int KLOsetcharattrarray(KLOmodel * /*model*/, const char * /*attrname*/, int /*start*/, int /*len*/, const char * /*values*/) {
  return pending("KLOsetcharattrarray");
}

int KLOgetmatattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, int * /*nnzP*/, int * /*nrowsP*/, int * /*ncolsP*/, int * /*ind*/, double * /*val*/) {
  return pending("KLOgetmatattrelement");
}

int KLOsetmatattrelement(KLOmodel * /*model*/, const char * /*attrname*/, int /*element*/, int /*nnz*/, int /*nrows*/, int /*ncols*/, const int * /*ind*/, const double * /*val*/) {
  return pending("KLOsetmatattrelement");
}

int KLOcbget(void * /*cbdata*/, int /*where*/, int /*what*/, void * /*resultP*/) {
  return pending("KLOcbget");
}

int KLOcbsolution(void * /*cbdata*/, const double * /*solution*/, double * /*objP*/) {
  return pending("KLOcbsolution");
}

int KLOcbsolutionp(void * /*cbdata*/, const double * /*solution*/, double * /*objP*/) {
  return pending("KLOcbsolutionp");
}

int KLOcbcut(void * /*cbdata*/, int /*cutlen*/, const int * /*cutind*/, const double * /*cutval*/, char /*cutsense*/, double /*cutrhs*/) {
  return pending("KLOcbcut");
}

int KLOcbcutp(void * /*cbdata*/, int /*cutlen*/, const int * /*cutind*/, const double * /*cutval*/, char /*cutsense*/, double /*cutrhs*/) {
  return pending("KLOcbcutp");
}

int KLOcbbranch(void * /*cbdata*/, int /*index*/, double /*value*/, int /*dir*/) {
  return pending("KLOcbbranch");
}

int KLOcbbranchp(void * /*cbdata*/, int /*index*/, double /*value*/, int /*dir*/) {
  return pending("KLOcbbranchp");
}

}  // extern "C"
