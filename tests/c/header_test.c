/* Proves that klo_c.h is C99 and that the library links from C: creates an
 * environment, sets and reads parameters, checks an error and its text. */
#include <stdio.h>
#include <string.h>

#include "klo_c.h"

static int failures = 0;

static void check(int ok, const char* what) {
  if (!ok) {
    fprintf(stderr, "header_test: %s\n", what);
    ++failures;
  }
}

int main(void) {
  KLOenv* env = NULL;
  int value = 0;
  double time = 0.0;
  int status;

  check(KLOemptyenv(&env) == KLO_OK && env != NULL, "KLOemptyenv failed");
  if (env == NULL) return 1;
  check(KLOsetintparam(env, "OutputFlag", 0) == KLO_OK, "setting OutputFlag failed");
  check(KLOstartenv(env) == KLO_OK, "KLOstartenv failed");

  check(KLOsetintparam(env, "MIP/MaxNodes", 12) == KLO_OK, "setting MIP/MaxNodes failed");
  check(KLOgetintparam(env, "MIP/MaxNodes", &value) == KLO_OK && value == 12,
        "MIP/MaxNodes did not read back as 12");
  check(KLOsetdblparam(env, "MaxTime", 1.5) == KLO_OK, "setting MaxTime failed");
  check(KLOgetdblparam(env, "MaxTime", &time) == KLO_OK && time == 1.5,
        "MaxTime did not read back as 1.5");

  status = KLOsetintparam(env, "NoSuchParameter", 1);
  check(status == KLO_ERROR_UNKNOWN_PARAMETER, "unknown parameter not refused");
  check(strstr(KLOgeterrormsg(env), "NoSuchParameter") != NULL,
        "error message does not name the parameter");
  check(strcmp(KLOexplainerror(status), "Unknown parameter name") == 0,
        "wrong text for KLO_ERROR_UNKNOWN_PARAMETER");
  check(KLOsetintparam(env, "OutputFlag", 2) == KLO_ERROR_PARAMETER_RANGE,
        "out-of-range value not refused");
  check(KLOsetdblparam(env, "OutputFlag", 1.0) == KLO_ERROR_PARAMETER_TYPE,
        "wrong parameter type not refused");

  check(KLOfreeenv(env) == KLO_OK, "KLOfreeenv failed");
  if (failures == 0) printf("header_test: all checks passed\n");
  return failures == 0 ? 0 : 1;
}
