// The Problem's matrix and bounds in COIN-OR's terms, for loading into Clp
// and the Osi solver under Cbc.
#pragma once

#include <CoinPackedMatrix.hpp>

#include <vector>

#include "engine/problem.h"

namespace klo::engine {

// Clp asserts on objective coefficients of this magnitude or more (its
// createRim), and takes matrix entries no larger.
constexpr double kCoinCoefficientLimit = 1e25;

CoinPackedMatrix packedMatrix(const Problem& p);

// Bounds with our infinity (1e20) replaced by COIN's (COIN_DBL_MAX): the
// engines would take 1e20 for a finite bound.
std::vector<double> coinBounds(const std::vector<double>& bounds);

}  // namespace klo::engine
