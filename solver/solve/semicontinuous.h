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

#include "engine/callback_context.h"
#include "engine/problem.h"
#include "store/model_data.h"

namespace klo {

struct Switch {
  int column;  // the semi-continuous column
  int z;       // its switch
};

// Rewrites the semi-continuous and semi-integer columns of p, a row-major
// problem, appending the switches after its columns and their rows after
// its rows (two per switch). A start value of x gives z's.
std::vector<Switch> switchSemicontinuous(engine::Problem& p, double bigM);

// The user's callback seeing the model d rather than the switched problem:
// its numbers of columns, rows and integers, and solutions proposed with
// d's columns only (each switch follows its column's value).
engine::Callback withoutSwitches(engine::Callback cb, std::vector<Switch> switches,
                                 const ModelData& d);

}  // namespace klo
