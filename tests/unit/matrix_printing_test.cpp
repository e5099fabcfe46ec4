// Matrix printing, byte for byte: dense grids, sparse entry lists and the
// abbreviations of large matrices.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "klo_cpp.h"

namespace {

std::string printed(const KLOMatrix& m) {
  std::ostringstream out;
  out << m;
  return out.str();
}

TEST(MatrixPrinting, SmallDenseMatrix) {
  EXPECT_EQ(printed(KLOMatrix::dense(2, 2, {1, 2, 3, 4})),
            "KLOMatrix(2, 2)\n[\n    [1, 2],\n    [3, 4]\n]");
}

TEST(MatrixPrinting, IdentityIsPrintedSparse) {
  EXPECT_EQ(printed(KLOMatrix::identity(3)),
            "KLOMatrix(3, 3)\n[\n    (0, 0) = 1\n    (1, 1) = 1\n    (2, 2) = 1\n]");
}

TEST(MatrixPrinting, NoEntries) {
  EXPECT_EQ(printed(KLOMatrix::zero(2, 2)), "KLOMatrix(2, 2)\n[]");
  EXPECT_EQ(printed(KLOMatrix()), "KLOMatrix(0, 0)\n[]");
}

TEST(MatrixPrinting, ColumnsAreAsWideAsTheirWidestValue) {
  EXPECT_EQ(printed(KLOMatrix::dense(2, 2, {12.5, 1, 1, 1})),
            "KLOMatrix(2, 2)\n[\n    [12.5, 1],\n    [   1, 1]\n]");
}

TEST(MatrixPrinting, LargeDenseMatrixElidesMiddleRowsAndColumns) {
  std::string expected = "KLOMatrix(11, 7)\n[\n";
  for (int r = 0; r < 10; ++r) {
    if (r == 5) expected += "    ...,\n\n";
    expected += "    [1, 1, 1, ..., 1, 1, 1]";
    expected += r < 9 ? ",\n" : "\n";
  }
  expected += "]";
  EXPECT_EQ(printed(KLOMatrix::ones(11, 7)), expected);
}

TEST(MatrixPrinting, LargeSparseMatrixElidesMiddleEntriesInStorageOrder) {
  int idx[11];
  double val[11];
  for (int k = 0; k < 11; ++k) {
    idx[k] = (10 - k) * 13;  // descending: storage order is kept
    val[k] = k;
  }
  KLOMatrix m = KLOMatrix::coo(12, 12, 11, idx, val);
  std::string out = printed(m);
  EXPECT_EQ(out,
            "KLOMatrix(12, 12)\n[\n"
            "    (10, 10) =  0\n"
            "    ( 9,  9) =  1\n"
            "    ( 8,  8) =  2\n"
            "    ( 7,  7) =  3\n"
            "    ( 6,  6) =  4\n"
            "    ...\n"
            "    ( 4,  4) =  6\n"
            "    ( 3,  3) =  7\n"
            "    ( 2,  2) =  8\n"
            "    ( 1,  1) =  9\n"
            "    ( 0,  0) = 10\n"
            "]");
}

TEST(MatrixPrinting, SparseWidthsCoverEveryShownEntry) {
  KLOMatrix m = KLOMatrix::sparse(20, 3, {0, 15}, {2, 0}, {-0.5, 3.0});
  EXPECT_EQ(printed(m), "KLOMatrix(20, 3)\n[\n    ( 0, 2) = -0.5\n    (15, 0) =    3\n]");
}

TEST(MatrixPrinting, DenseLayoutReadsValuesByArrayPositionAlone) {
  // Four entries in a 2 x 2 matrix: printed as if stored row-major, the
  // positions are not consulted.
  int idx[] = {3, 2, 1, 0};
  double val[] = {1, 2, 3, 4};
  EXPECT_EQ(printed(KLOMatrix::coo(2, 2, 4, idx, val)),
            "KLOMatrix(2, 2)\n[\n    [1, 2],\n    [3, 4]\n]");
}

TEST(MatrixPrinting, LengthsOfNumbers) {
  EXPECT_EQ(length(12.5), 4);
  EXPECT_EQ(length(1e20), 5);
  EXPECT_EQ(length(1.0 / 3.0), 8);
  EXPECT_EQ(length(-42), 3);
  EXPECT_EQ(length(0), 1);
}

}  // namespace
