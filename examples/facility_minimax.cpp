// Minimax facility location: place two facilities in the unit square so
// that the customer farthest from its facility is as near as possible.
// The customers sit on the 3 x 3 grid {0, 0.5, 1}^2.  A mixed-integer
// model with quadratic rows, written with addQConstr: each distance is
// bounded by a cone row  r0^2 + r1^2 - s^2 <= 0  (r the offset from the
// customer to a facility, s >= 0 its distance).
//
// For customer c and facility f, z[c][f] = 1 when f serves c; then
//   s - d + M z = M   makes s = d (the largest distance) when z = 1 and
//                     lets s be M + d, i.e. no limit, when z = 0, with
//                     M = 2 sqrt(2) beyond any distance in the square.
//
// The answer: the largest distance is sqrt(5)/4 = 0.559017.  One optimal
// placement, (0.25, 0.5) serving the left and middle columns and (1, 0.5)
// the right one, reaches it: the farthest customers of the first are the
// corners, at sqrt(0.25^2 + 0.5^2) = sqrt(5)/4, those of the second at
// 0.5.  No placement does better: trying every split of the nine
// customers into two groups (each served from the centre of its smallest
// enclosing circle) gives sqrt(5)/4 as the least largest radius.  Several
// placements reach it, so only the distance is printed as the result.
#include <klo_cpp.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <string>

namespace {

const int kFacilities = 2;
const int kSide = 3;  // customers on a kSide x kSide grid
const int kCustomers = kSide * kSide;
const double kInfinity = 1e20;  // bounds this large are infinite

double customerX(int c) { return (c / kSide) / double(kSide - 1); }
double customerY(int c) { return (c % kSide) / double(kSide - 1); }

struct Link {  // customer c served (or not) by facility f
  KLOVar s, z, r0, r1;
};

}  // namespace

int main() {
  try {
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    KLOModel model(env);
    const double bigM = 2 * std::sqrt(2.0);

    KLOVar at[kFacilities][2];  // the facilities' coordinates
    for (int f = 0; f < kFacilities; ++f)
      for (int k = 0; k < 2; ++k) at[f][k] = model.addVar(0, 1, 0, 'C');
    const KLOVar d = model.addVar(-kInfinity, kInfinity, 1, 'C', "d");  // minimised

    Link link[kCustomers][kFacilities];
    for (int c = 0; c < kCustomers; ++c) {
      KLOLinExpr served;
      for (int f = 0; f < kFacilities; ++f) {
        Link& l = link[c][f];
        l.s = model.addVar(0, kInfinity, 0, 'C');
        l.z = model.addVar(0, 1, 0, 'B');
        l.r0 = model.addVar(-kInfinity, kInfinity, 0, 'C');
        l.r1 = model.addVar(-kInfinity, kInfinity, 0, 'C');
        served += l.z;
        model.addConstr(l.s - d + bigM * l.z == bigM);
        model.addConstr(l.r0 + at[f][0] == customerX(c));
        model.addConstr(l.r1 + at[f][1] == customerY(c));
        model.addQConstr(l.r0 * l.r0 + l.r1 * l.r1 - l.s * l.s <= 0);
      }
      model.addConstr(served == 1, "served" + std::to_string(c));
    }

    model.optimize();
    if (model.get(KLO_IntAttr_Status) != 1) {
      std::printf("not solved (status %d)\n", model.get(KLO_IntAttr_Status));
      return 1;
    }

    // Measured again from the answer: each customer's distance to the
    // facility that serves it.
    double farthest = 0;
    for (int f = 0; f < kFacilities; ++f) {
      const double fx = at[f][0].get(KLO_DoubleAttr_X), fy = at[f][1].get(KLO_DoubleAttr_X);
      int count = 0;
      for (int c = 0; c < kCustomers; ++c) {
        if (link[c][f].z.get(KLO_DoubleAttr_X) < 0.5) continue;
        ++count;
        farthest = std::max(farthest, std::hypot(fx - customerX(c), fy - customerY(c)));
      }
      std::printf("facility %d at (%.3f, %.3f) serves %d customers\n", f, fx, fy, count);
    }
    std::printf("largest distance: %.5f\n", d.get(KLO_DoubleAttr_X));
    std::printf("farthest customer, measured: %.5f\n", farthest);
    return 0;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
