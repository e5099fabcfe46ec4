// Semi-continuous and semi-integer columns, solved as a binary switch each.
//
// Column x of type 'S' ('N') with bounds [a, b] takes 0 or a value in
// [a, b] (an integer one). When [a, b] holds 0 that is just [a, b]: x
// becomes 'C' ('I'). Otherwise a switch z, binary, is added with the rows
//     x - a z >= 0,    x - b z <= 0
// and x's bounds become [min(a, 0), max(b, 0)]: z = 0 forces x = 0, z = 1
// keeps x in [a, b]. An infinite a or b is taken as -bigM or bigM.
#pragma once

#include <vector>

#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"

namespace klo {

struct Switch {
  int column;           // the semi-continuous column
  int z;                // its switch
  int row;              // the first of its two rows
  double lower, upper;  // the column's own bounds, which do not hold 0
};

// Rewrites the semi-continuous and semi-integer columns of p, a row-major
// problem, appending the switches after its columns and their rows after
// its rows (two per switch). A start value of x gives z's.
std::vector<Switch> switchSemicontinuous(engine::Problem& p, double bigM);

// Measures r's values of the switched columns against their own
// condition (0, or within [lower, upper]; within the integrality tolerance
// of z, big-M rows let them stray) and folds the largest violation into
// r.violations.bound; an optimal answer that the check then fails is
// suboptimal, and the log says so.
void checkSwitchedColumns(const std::vector<Switch>& switches, engine::Result& r,
                          const engine::Settings& s);

// Sets each switch of x (sized to the switched problem) from its column's
// value: on when it is not 0; unset when the column is.
void completeSwitches(const std::vector<Switch>& switches, std::vector<double>& x);

}  // namespace klo
