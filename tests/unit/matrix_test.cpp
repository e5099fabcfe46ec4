// Sparse matrices: factories, ownership of caller arrays, sorting, the
// merge behind + and -, scaling and copying.
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <vector>

#include "klo_cpp.h"

namespace {

std::vector<int> positions(const KLOMatrix& m) {
  return std::vector<int>(m.indices(), m.indices() + m.nonzeros());
}

std::vector<double> values(const KLOMatrix& m) {
  return std::vector<double>(m.data(), m.data() + m.nonzeros());
}

std::string outOfRange(void (*f)()) {
  try {
    f();
  } catch (const std::out_of_range& e) {
    return e.what();
  }
  return "nothing thrown";
}

TEST(MatrixFactories, FullOfZeroIsEmptyAndOfNaNIsNot) {
  EXPECT_EQ(KLOMatrix::full(2, 3, 0.0).nonzeros(), 0);
  EXPECT_EQ(KLOMatrix::full(2, 3, -0.0).nonzeros(), 0);
  KLOMatrix nan = KLOMatrix::full(2, 3, std::nan(""));
  ASSERT_EQ(nan.nonzeros(), 6);
  for (double v : values(nan)) EXPECT_TRUE(std::isnan(v));
  KLOMatrix sevens = KLOMatrix::full(1, 2, 7.0);
  EXPECT_EQ(values(sevens), (std::vector<double>{7, 7}));
}

TEST(MatrixFactories, OnesIdentityAndZero) {
  KLOMatrix ones = KLOMatrix::ones(2, 3);
  EXPECT_EQ(positions(ones), (std::vector<int>{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(values(ones), std::vector<double>(6, 1.0));
  KLOMatrix id = KLOMatrix::identity(3);
  EXPECT_EQ(positions(id), (std::vector<int>{0, 4, 8}));
  EXPECT_EQ(values(id), std::vector<double>(3, 1.0));
  KLOMatrix zero = KLOMatrix::zero(4, 5);
  EXPECT_EQ(zero.rows(), 4);
  EXPECT_EQ(zero.cols(), 5);
  EXPECT_EQ(zero.nonzeros(), 0);
  EXPECT_EQ(KLOMatrix().nonzeros(), 0);
}

TEST(MatrixFactories, SparseChecksRowsBeforeColumns) {
  EXPECT_EQ(outOfRange([] {
              KLOMatrix::sparse(2, 2, {0, 1}, {0}, {1.0, 2.0});
            }),
            "col array has less elements than data array");
  EXPECT_EQ(outOfRange([] {
              KLOMatrix::sparse(2, 2, {0}, {0}, {1.0, 2.0});
            }),
            "row array has less elements than data array");
  KLOMatrix m = KLOMatrix::sparse(2, 2, {0, 1, 1}, {0, 1, 0}, {1.0, 2.0});
  EXPECT_EQ(positions(m), (std::vector<int>{0, 3}));
  EXPECT_EQ(values(m), (std::vector<double>{1, 2}));
}

TEST(MatrixFactories, DenseFromAListNeedsEveryValue) {
  EXPECT_EQ(outOfRange([] {
              KLOMatrix::dense(2, 2, {1.0, 2.0, 3.0});
            }),
            "data array expects more elements");
  KLOMatrix m = KLOMatrix::dense(2, 2, {1, 2, 3, 4, 5});
  EXPECT_EQ(positions(m), (std::vector<int>{0, 1, 2, 3}));
  EXPECT_EQ(values(m), (std::vector<double>{1, 2, 3, 4}));
}

TEST(MatrixFactories, DenseOverCallerValuesBorrowsThem) {
  double v[] = {1, 2, 3, 4, 5, 6};
  KLOMatrix m = KLOMatrix::dense(2, 3, v);
  EXPECT_EQ(m.data(), v);
  EXPECT_EQ(positions(m), (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST(MatrixFactories, CooFromRowsAndColumns) {
  int rows[] = {1, 0}, cols[] = {2, 1};
  double v[] = {5, 6};
  KLOMatrix m = KLOMatrix::coo(2, 3, 2, rows, cols, v);
  EXPECT_EQ(positions(m), (std::vector<int>{5, 1}));
  EXPECT_EQ(m.data(), v);
}

TEST(MatrixFactories, CompressedRowsStartAtEachRow) {
  int start[] = {0, 2}, cols[] = {0, 2, 1};
  double v[] = {1, 2, 3};
  KLOMatrix m = KLOMatrix::csr(2, 3, 3, start, cols, v);
  EXPECT_EQ(positions(m), (std::vector<int>{0, 2, 4}));
}

TEST(MatrixFactories, CompressedColumnsEndTheGroupOfColumnRowsMinusOneAtNnz) {
  // 2 x 3: column 1 (= rows - 1) runs to nnz, and column 2 reads
  // colStart[3], the element past the three starts.
  int start[] = {0, 1, 3, 3}, rows[] = {0, 1, 0};
  double v[] = {1, 2, 3};
  KLOMatrix m = KLOMatrix::csc(2, 3, 3, start, rows, v);
  EXPECT_EQ(positions(m), (std::vector<int>{0, 4, 1}));
  // Overlapping groups stop at nnz positions instead of running past them.
  int overlapping[] = {0, 1, 2, 3};
  KLOMatrix o = KLOMatrix::csc(2, 3, 3, overlapping, rows, v);
  EXPECT_EQ(positions(o), (std::vector<int>{0, 4, 1}));
  int square[] = {0, 1, 1}, squareRows[] = {1, 0, 2};
  double w[] = {1, 2, 3};
  KLOMatrix s = KLOMatrix::csc(3, 3, 3, square, squareRows, w);
  EXPECT_EQ(positions(s), (std::vector<int>{3, 2, 8}));
}

TEST(MatrixStorage, OwnershipKinds) {
  int idx[] = {0};
  double val[] = {1.0};
  EXPECT_EQ(KLOSparseStorage(1).kind, KLOSparseStorage::OwnsBoth);
  EXPECT_EQ(KLOSparseStorage(1, idx).kind, KLOSparseStorage::BorrowsIndices);
  EXPECT_EQ(KLOSparseStorage(1, val).kind, KLOSparseStorage::BorrowsValues);
  KLOSparseStorage both(1, idx, val);
  EXPECT_EQ(both.kind, KLOSparseStorage::BorrowsBoth);
  EXPECT_EQ(both.indices, idx);
  EXPECT_EQ(both.values, val);
  KLOMatrix wrapsIndices(1, 1, 1, idx);
  EXPECT_EQ(wrapsIndices.indices(), idx);
  KLOMatrix wrapsValues(1, 1, 1, val);
  EXPECT_EQ(wrapsValues.data(), val);
}

TEST(MatrixSort, ReordersTheCallersArraysThroughEveryCopy) {
  int idx[] = {3, 0, 3, 1};
  double val[] = {9, 8, 7, 6};
  KLOMatrix m = KLOMatrix::coo(2, 2, 4, idx, val);
  KLOMatrix shared = m;
  sort(m);
  EXPECT_EQ(std::vector<int>(idx, idx + 4), (std::vector<int>{0, 1, 3, 3}));
  EXPECT_EQ(std::vector<double>(val, val + 4), (std::vector<double>{8, 6, 7, 9}));
  EXPECT_EQ(positions(shared), (std::vector<int>{0, 1, 3, 3}));
}

TEST(MatrixSort, OrderedEntriesAreLeftAsTheyAre) {
  int idx[] = {0, 2, 2};
  double val[] = {1, 5, 4};  // equal positions keep their value order
  KLOMatrix m = KLOMatrix::coo(2, 2, 3, idx, val);
  sort(m);
  EXPECT_EQ(std::vector<double>(val, val + 3), (std::vector<double>{1, 5, 4}));
}

TEST(MatrixArithmetic, SumWithTheNegationKeepsExplicitZeros) {
  KLOMatrix a = KLOMatrix::sparse(3, 3, {0, 1, 2}, {2, 0, 1}, {1.5, -2.0, 4.0});
  KLOMatrix negated = a * -1.0;
  KLOMatrix sum = a + negated;
  EXPECT_EQ(sum.nonzeros(), 3);
  EXPECT_EQ(values(sum), std::vector<double>(3, 0.0));
  EXPECT_EQ(positions(sum), (std::vector<int>{2, 3, 7}));
}

TEST(MatrixArithmetic, DifferenceNegatesWhatOnlyTheRightHas) {
  KLOMatrix a = KLOMatrix::sparse(2, 2, {0}, {0}, {5.0});
  KLOMatrix b = KLOMatrix::sparse(2, 2, {1, 0}, {1, 0}, {3.0, 2.0});
  KLOMatrix d = a - b;
  EXPECT_EQ(positions(d), (std::vector<int>{0, 3}));
  EXPECT_EQ(values(d), (std::vector<double>{3.0, -3.0}));
  KLOMatrix s = b + a;
  EXPECT_EQ(values(s), (std::vector<double>{7.0, 3.0}));
}

TEST(MatrixArithmetic, DuplicatePositionsPairAtMostOnce) {
  KLOMatrix a = KLOMatrix::sparse(1, 4, {0, 0}, {1, 1}, {1.0, 2.0});
  KLOMatrix b = KLOMatrix::sparse(1, 4, {0}, {1}, {10.0});
  KLOMatrix s = a + b;
  EXPECT_EQ(positions(s), (std::vector<int>{1, 1}));
  EXPECT_EQ(values(s), (std::vector<double>{11.0, 2.0}));
}

TEST(MatrixArithmetic, DimensionsComeFromTheLeftUnchecked) {
  KLOMatrix s = KLOMatrix::ones(2, 3) + KLOMatrix::ones(3, 2);
  EXPECT_EQ(s.rows(), 2);
  EXPECT_EQ(s.cols(), 3);
  EXPECT_EQ(values(s), std::vector<double>(6, 2.0));
}

TEST(MatrixArithmetic, ScalingKeepsEveryEntry) {
  KLOMatrix a = KLOMatrix::dense(1, 3, {1.0, -2.0, 0.0});
  KLOMatrix zero = 0.0 * a;
  EXPECT_EQ(values(zero), (std::vector<double>{0.0, -0.0, 0.0}));
  KLOMatrix inf = a / 0.0;
  EXPECT_TRUE(std::isinf(inf.data()[0]));
  EXPECT_TRUE(std::isinf(inf.data()[1]));
  EXPECT_TRUE(std::isnan(inf.data()[2]));
  EXPECT_EQ(values(a / 4.0), (std::vector<double>{0.25, -0.5, 0.0}));
  EXPECT_EQ(values(a), (std::vector<double>{1.0, -2.0, 0.0}));
}

TEST(MatrixCopy, DeepCopyIsIndependentOfTheCallersArrays) {
  int idx[] = {1, 0};
  double val[] = {2, 3};
  KLOMatrix wrapped = KLOMatrix::coo(1, 2, 2, idx, val);
  KLOMatrix deep = wrapped.copy();
  KLOMatrix plain = wrapped;
  val[0] = 99;
  EXPECT_EQ(values(deep), (std::vector<double>{2, 3}));
  EXPECT_EQ(positions(deep), (std::vector<int>{1, 0}));
  EXPECT_EQ(plain.data()[0], 99);
}

}  // namespace
