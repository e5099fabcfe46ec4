// Whether a problem's quadratic parts are convex, checked numerically.
//  - A minimised objective needs x'Qx positive semidefinite, a maximised
//    one negative semidefinite.
//  - A row  q(x) + a'x <= u  needs Q positive semidefinite; q(x) + a'x >= l
//    negative semidefinite; a row with both bounds finite is convex only
//    when its quadratic terms vanish.
//  - Rows of second-order-cone form are convex although Q is indefinite:
//    sum d_k y_k^2 - c t^2 <= K and sum d_k y_k^2 - c t u <= K with d, c > 0,
//    K <= 0 (after completing the squares of linear terms in y), and t, u
//    bounded below by 0.
// Semidefiniteness is decided by the eigenvalues (LAPACK's dsyev) of each
// connected block of Q: the smallest may be below 0 by 1e-5 of the largest
// in magnitude (data rounded to six digits moves eigenvalues that far).
#pragma once

#include "engine/problem.h"

namespace klo {

struct Convexity {
  bool convex = true;
  // The first part found nonconvex: the objective when row is -1.
  int row = -1;
};

Convexity checkConvexity(const engine::Problem& p);

// Whether the terms, read as the symmetric form sum val x_i x_j, are
// positive semidefinite (sign 1) or negative semidefinite (sign -1).
bool semidefinite(const engine::QuadTerms& q, int sign);

// Whether `lower <= terms + linear <= upper` (row r of p) has cone form.
bool coneRow(const engine::Problem& p, int r, const engine::QuadTerms& q);

}  // namespace klo
