// The engine's copy of a model carries every part of it, in the
// conventions problem.h documents.
#include "solve/problem_from_model.h"

#include <vector>

#include "store/model.h"
#include "test_support.h"

namespace klotest {
namespace {

using ProblemFromModel = ModelTest;

TEST_F(ProblemFromModel, EveryPartOfTheModelArrives) {
  addVars(2);  // x0, x1 in [0, 10]
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 1, 'B'), KLO_OK);
  // Objective x0 + 3 x0^2 + x0 x1: three times x0^2 given as 1 + 2.
  ASSERT_EQ(KLOsetdblattrelement(model, "Obj", 0, 1.0), KLO_OK);
  const int qr[] = {0, 0, 1}, qc[] = {0, 0, 0};
  const double qv[] = {1, 2, 1};
  ASSERT_EQ(KLOaddqpterms(model, 3, qr, qc, qv), KLO_OK);
  // Row 0: x0 + x1 <= 4; row 1: x1 + x0^2 >= 1; row 2: x0 + <M, X> = 2.
  const int ind[] = {0, 1};
  const double one[] = {1, 1};
  ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, one, -KLO_INFINITY, 4, "lin"), KLO_OK);
  const int q0[] = {0};
  ASSERT_EQ(KLOaddqconstr(model, 1, &ind[1], one, 1, q0, q0, one, '>', 1, "quad"), KLO_OK);
  ASSERT_EQ(KLOaddpsdvar(model, 2, "X"), KLO_OK);
  const int psdvar[] = {0}, mbeg[] = {0, 2}, mind[] = {2, 3};  // (1,0) and (1,1)
  const double mval[] = {0.5, 4};
  ASSERT_EQ(KLOaddrangepsdconstr(model, 1, ind, one, 1, psdvar, mbeg, mind, mval, 2, 2, "psd"),
            KLO_OK);
  const int types[] = {KLO_SOS_TYPE1}, sbeg[] = {0};
  ASSERT_EQ(KLOaddsos(model, 1, 2, types, sbeg, ind, nullptr), KLO_OK);
  ASSERT_EQ(KLOaddgenconstrIndicator(model, "ind", 1, 1, 1, ind, one, '<', 3), KLO_OK);

  const klo::engine::Problem p = klo::problemFromModel(model->data);

  klo::engine::checkProblem(p);
  EXPECT_EQ(p.colType, (std::vector<char>{'C', 'B'}));
  EXPECT_EQ(p.obj, (std::vector<double>{1, 0}));
  EXPECT_EQ(p.objQuad.row, (std::vector<int>{0, 0}));
  EXPECT_EQ(p.objQuad.col, (std::vector<int>{0, 1}));
  EXPECT_EQ(p.objQuad.val, (std::vector<double>{3, 1}));
  EXPECT_EQ(p.numRows(), 3);
  ASSERT_EQ(p.quadRows.size(), 1u);
  EXPECT_EQ(p.quadRows[0].row, 1);
  EXPECT_EQ(p.quadRows[0].terms.val, std::vector<double>{1});
  EXPECT_EQ(p.rowLower[1], 1);
  ASSERT_EQ(p.psdVars.size(), 1u);
  EXPECT_EQ(p.psdVars[0].dim, 2);
  ASSERT_EQ(p.psdTerms.size(), 1u);
  EXPECT_EQ(p.psdTerms[0].row, 2);
  EXPECT_EQ(p.psdTerms[0].mat.pos, (std::vector<int>{1, 3})) << "the upper triangle";
  EXPECT_EQ(p.psdTerms[0].mat.val, (std::vector<double>{0.5, 4}));
  ASSERT_EQ(p.sos.size(), 1u);
  EXPECT_EQ(p.sos[0].members, (std::vector<int>{0, 1}));
  ASSERT_EQ(p.indicators.size(), 1u);
  EXPECT_EQ(p.indicators[0].binVar, 1);
  EXPECT_EQ(p.indicators[0].sense, '<');
  EXPECT_EQ(p.indicators[0].rhs, 3);
}

}  // namespace
}  // namespace klotest
