// Sparse matrices: factories, ownership of caller arrays, sorting, the
// merge behind + and -, scaling, copying and printing byte for byte.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "klo_cpp.h"

namespace {

using Ints = std::vector<int>;
using Doubles = std::vector<double>;

Ints positions(const KLOMatrix& m) { return Ints(m.indices(), m.indices() + m.nonzeros()); }
Doubles values(const KLOMatrix& m) { return Doubles(m.data(), m.data() + m.nonzeros()); }

std::string printed(const KLOMatrix& m) {
  std::ostringstream out;
  out << m;
  return out.str();
}

template <class F>
std::string outOfRange(F f) {
  try {
    f();
  } catch (const std::out_of_range& e) {
    return e.what();
  }
  return "nothing thrown";
}

TEST(Matrix, FactoriesPlaceEntriesRowMajor) {
  int rows[] = {1, 0}, cols[] = {2, 1}, csrStart[] = {0, 2}, csrCols[] = {0, 2, 1};
  // csc: column 1 (= rows - 1) runs to nnz, column 2 reads colStart[3]; the
  // overlapping and square starts stop at nnz instead of running past it.
  int cscStart[] = {0, 1, 3, 3}, overlapping[] = {0, 1, 2, 3}, cscRows[] = {0, 1, 0};
  int square[] = {0, 1, 1}, squareRows[] = {1, 0, 2};
  double v[] = {1, 2, 3, 4, 5, 6};
  const std::vector<std::pair<KLOMatrix, Ints>> cases = {
      {KLOMatrix::ones(2, 3), {0, 1, 2, 3, 4, 5}},
      {KLOMatrix::identity(3), {0, 4, 8}},
      {KLOMatrix::zero(4, 5), {}},
      {KLOMatrix(), {}},
      {KLOMatrix::full(2, 3, 0.0), {}},
      {KLOMatrix::full(2, 3, -0.0), {}},
      {KLOMatrix::sparse(2, 2, {0, 1, 1}, {0, 1, 0}, {1.0, 2.0}), {0, 3}},
      {KLOMatrix::dense(2, 2, {1, 2, 3, 4, 5}), {0, 1, 2, 3}},
      {KLOMatrix::dense(2, 3, v), {0, 1, 2, 3, 4, 5}},
      {KLOMatrix::coo(2, 3, 2, rows, cols, v), {5, 1}},
      {KLOMatrix::csr(2, 3, 3, csrStart, csrCols, v), {0, 2, 4}},
      {KLOMatrix::csc(2, 3, 3, cscStart, cscRows, v), {0, 4, 1}},
      {KLOMatrix::csc(2, 3, 3, overlapping, cscRows, v), {0, 4, 1}},
      {KLOMatrix::csc(3, 3, 3, square, squareRows, v), {3, 2, 8}}};
  for (const auto& [m, expected] : cases) EXPECT_EQ(positions(m), expected) << printed(m);
  EXPECT_EQ(values(cases[0].first), Doubles(6, 1.0));
  EXPECT_EQ(values(cases[1].first), Doubles(3, 1.0));
  EXPECT_EQ((Ints{cases[2].first.rows(), cases[2].first.cols()}), (Ints{4, 5}));
  EXPECT_EQ(values(cases[6].first), (Doubles{1, 2}));
  EXPECT_EQ(values(cases[7].first), (Doubles{1, 2, 3, 4}));
  EXPECT_EQ(cases[8].first.data(), v);  // borrowed, not copied
  EXPECT_EQ(cases[9].first.data(), v);
  EXPECT_EQ(values(KLOMatrix::full(1, 2, 7.0)), (Doubles{7, 7}));
  const KLOMatrix nan = KLOMatrix::full(2, 3, std::nan(""));
  ASSERT_EQ(nan.nonzeros(), 6);
  for (double d : values(nan)) EXPECT_TRUE(std::isnan(d));
}

TEST(Matrix, FactoriesCheckTheirListsRowsFirst) {
  EXPECT_EQ(outOfRange([] {
              KLOMatrix::sparse(2, 2, {0, 1}, {0}, {1.0, 2.0});
            }),
            "col array has less elements than data array");
  EXPECT_EQ(outOfRange([] {
              KLOMatrix::sparse(2, 2, {0}, {0}, {1.0, 2.0});
            }),
            "row array has less elements than data array");
  EXPECT_EQ(outOfRange([] {
              KLOMatrix::dense(2, 2, {1.0, 2.0, 3.0});
            }),
            "data array expects more elements");
}

TEST(Matrix, StorageBorrowsWhatItIsGiven) {
  int idx[] = {0};
  double val[] = {1.0};
  EXPECT_EQ(KLOSparseStorage(1).kind, KLOSparseStorage::OwnsBoth);
  EXPECT_EQ(KLOSparseStorage(1, idx).kind, KLOSparseStorage::BorrowsIndices);
  EXPECT_EQ(KLOSparseStorage(1, val).kind, KLOSparseStorage::BorrowsValues);
  KLOSparseStorage both(1, idx, val);
  EXPECT_EQ(both.kind, KLOSparseStorage::BorrowsBoth);
  EXPECT_EQ(both.indices, idx);
  EXPECT_EQ(both.values, val);
  EXPECT_EQ(KLOMatrix(1, 1, 1, idx).indices(), idx);
  EXPECT_EQ(KLOMatrix(1, 1, 1, val).data(), val);
}

TEST(Matrix, SortReordersTheCallersArraysStablyThroughEveryCopy) {
  int idx[] = {3, 0, 3, 1};
  double val[] = {9, 8, 7, 6};
  KLOMatrix m = KLOMatrix::coo(2, 2, 4, idx, val);
  const KLOMatrix shared = m;
  sort(m);
  EXPECT_EQ(Ints(idx, idx + 4), (Ints{0, 1, 3, 3}));
  EXPECT_EQ(Doubles(val, val + 4), (Doubles{8, 6, 7, 9}));
  EXPECT_EQ(positions(shared), (Ints{0, 1, 3, 3}));
  int ordered[] = {0, 2, 2};
  double same[] = {1, 5, 4};  // equal positions keep their value order
  KLOMatrix o = KLOMatrix::coo(2, 2, 3, ordered, same);
  sort(o);
  EXPECT_EQ(Doubles(same, same + 3), (Doubles{1, 5, 4}));
}

TEST(Matrix, ArithmeticMergesByPositionAndKeepsEveryEntry) {
  const KLOMatrix a = KLOMatrix::sparse(3, 3, {0, 1, 2}, {2, 0, 1}, {1.5, -2.0, 4.0});
  const KLOMatrix sum = a + a * -1.0;  // explicit zeros stay
  EXPECT_EQ(positions(sum), (Ints{2, 3, 7}));
  EXPECT_EQ(values(sum), Doubles(3, 0.0));
  const KLOMatrix b = KLOMatrix::sparse(2, 2, {0}, {0}, {5.0});
  const KLOMatrix c = KLOMatrix::sparse(2, 2, {1, 0}, {1, 0}, {3.0, 2.0});
  EXPECT_EQ(positions(b - c), (Ints{0, 3}));
  EXPECT_EQ(values(b - c), (Doubles{3.0, -3.0}));
  EXPECT_EQ(values(c + b), (Doubles{7.0, 3.0}));
  const KLOMatrix twice = KLOMatrix::sparse(1, 4, {0, 0}, {1, 1}, {1.0, 2.0});
  const KLOMatrix once = KLOMatrix::sparse(1, 4, {0}, {1}, {10.0});
  EXPECT_EQ(positions(twice + once), (Ints{1, 1}));  // duplicates pair at most once
  EXPECT_EQ(values(twice + once), (Doubles{11.0, 2.0}));
  const KLOMatrix s = KLOMatrix::ones(2, 3) + KLOMatrix::ones(3, 2);  // left's shape, unchecked
  EXPECT_EQ((Ints{s.rows(), s.cols()}), (Ints{2, 3}));
  EXPECT_EQ(values(s), Doubles(6, 2.0));
  const KLOMatrix d = KLOMatrix::dense(1, 3, {1.0, -2.0, 0.0});
  EXPECT_EQ(values(0.0 * d), (Doubles{0.0, -0.0, 0.0}));
  EXPECT_EQ(values(d / 4.0), (Doubles{0.25, -0.5, 0.0}));
  const Doubles inf = values(d / 0.0);
  EXPECT_TRUE(std::isinf(inf[0]) && std::isinf(inf[1]) && std::isnan(inf[2]));
  EXPECT_EQ(values(d), (Doubles{1.0, -2.0, 0.0}));
  int idx[] = {1, 0};
  double val[] = {2, 3};
  const KLOMatrix wrapped = KLOMatrix::coo(1, 2, 2, idx, val);
  const KLOMatrix deep = wrapped.copy(), plain = wrapped;
  val[0] = 99;
  EXPECT_EQ(values(deep), (Doubles{2, 3}));
  EXPECT_EQ(positions(deep), (Ints{1, 0}));
  EXPECT_EQ(plain.data()[0], 99);
}

TEST(Matrix, PrintingAbbreviatesLargeMatricesAndAlignsColumns) {
  // Four entries in a 2 x 2 matrix print by array position alone.
  int reversed[] = {3, 2, 1, 0};
  double four[] = {1, 2, 3, 4};
  int diag[11];
  double val[11];
  for (int k = 0; k < 11; ++k) diag[k] = (10 - k) * 13, val[k] = k;  // storage order is kept
  std::string ones = "KLOMatrix(11, 7)\n[\n";
  for (int r = 0; r < 10; ++r) {
    ones += r == 5 ? "    ...,\n\n" : "";
    ones += std::string("    [1, 1, 1, ..., 1, 1, 1]") + (r < 9 ? ",\n" : "\n");
  }
  const std::vector<std::pair<KLOMatrix, std::string>> cases = {
      {KLOMatrix::dense(2, 2, {1, 2, 3, 4}), "KLOMatrix(2, 2)\n[\n    [1, 2],\n    [3, 4]\n]"},
      {KLOMatrix::coo(2, 2, 4, reversed, four), "KLOMatrix(2, 2)\n[\n    [1, 2],\n    [3, 4]\n]"},
      {KLOMatrix::identity(3),
       "KLOMatrix(3, 3)\n[\n    (0, 0) = 1\n    (1, 1) = 1\n    (2, 2) = 1\n]"},
      {KLOMatrix::zero(2, 2), "KLOMatrix(2, 2)\n[]"},
      {KLOMatrix(), "KLOMatrix(0, 0)\n[]"},
      {KLOMatrix::dense(2, 2, {12.5, 1, 1, 1}),
       "KLOMatrix(2, 2)\n[\n    [12.5, 1],\n    [   1, 1]\n]"},
      {KLOMatrix::sparse(20, 3, {0, 15}, {2, 0}, {-0.5, 3.0}),
       "KLOMatrix(20, 3)\n[\n    ( 0, 2) = -0.5\n    (15, 0) =    3\n]"},
      {KLOMatrix::ones(11, 7), ones + "]"},
      {KLOMatrix::coo(12, 12, 11, diag, val),
       "KLOMatrix(12, 12)\n[\n    (10, 10) =  0\n    ( 9,  9) =  1\n    ( 8,  8) =  2\n"
       "    ( 7,  7) =  3\n    ( 6,  6) =  4\n    ...\n    ( 4,  4) =  6\n    ( 3,  3) =  7\n"
       "    ( 2,  2) =  8\n    ( 1,  1) =  9\n    ( 0,  0) = 10\n]"}};
  for (const auto& [m, text] : cases) EXPECT_EQ(printed(m), text);
  const std::vector<std::pair<double, int>> lengths = {
      {12.5, 4}, {1e20, 5}, {1.0 / 3.0, 8}, {-42, 3}, {0, 1}};
  for (const auto& [d, n] : lengths) EXPECT_EQ(length(d), n) << d;
}

}  // namespace
