// A program outside the project, built against the installed headers and
// libraries: it uses the name tables of the object layer and the solver
// library through the C interface.
#include <klo_c.h>
#include <klo_cpp.h>

#include <cstdio>
#include <cstring>

int main() {
  KLOenv* env = nullptr;
  if (KLOloadenv(&env, nullptr) != 0) return 1;
  KLOsetintparam(env, "OutputFlag", 0);
  int value = -1;
  int status = KLOgetintparam(env, INT_PARNAMES[KLO_IntParam(4)], &value);
  KLOfreeenv(env);
  if (status != 0 || value != 0) {
    std::printf("outside: parameter read failed (%d, %d)\n", status, value);
    return 1;
  }
  try {
    throw KLOException("checked", -3);
  } catch (const KLOException& e) {
    if (e.getErrorCode() != -3 || e.getMessage() != "checked") return 1;
  }
  std::printf("outside: ok\n");
  return 0;
}
