// Shared instances read into the object layer, solved, and their
// objectives compared with index.csv; the handle vectors match the
// library's counts.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>

#include "klo_cpp.h"

namespace {

struct Instance {
    std::string file;
    int rows = 0;
    int cols = 0;
    double objective = 0;
};

// The line of index.csv for name (name,kind,file,rows,cols,integers,objective).
Instance lookup(const std::string& name) {
    std::ifstream index(std::string(KLO_INSTANCES_DIR) + "/index.csv");
    std::string line;
    while (std::getline(index, line)) {
        std::stringstream fields(line);
        std::string field[7];
        for (std::string& f : field) std::getline(fields, f, ',');
        if (field[0] == name) {
            return {std::string(KLO_INSTANCES_DIR) + "/" + field[2], std::stoi(field[3]),
                    std::stoi(field[4]), std::stod(field[6])};
        }
    }
    ADD_FAILURE() << name << " is not in index.csv";
    return {};
}

class Instances : public ::testing::TestWithParam<std::string> {};

TEST_P(Instances, SolveToTheirKnownObjective) {
    const Instance inst = lookup(GetParam());
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    KLOModel model(env, inst.file);
    EXPECT_EQ(model.get(KLO_IntAttr_NumConstrs), inst.rows);
    EXPECT_EQ(model.get(KLO_IntAttr_NumVars), inst.cols);
    EXPECT_EQ(model.getConstr(inst.rows - 1).index(), inst.rows - 1);
    EXPECT_EQ(model.getVar(inst.cols - 1).index(), inst.cols - 1);
    model.optimize();
    const double obj = model.get(KLO_DoubleAttr_ObjVal);
    EXPECT_NEAR(obj, inst.objective, 1e-6 * std::max(1.0, std::fabs(inst.objective)));
    // The objective read back evaluates to the optimum at the solution.
    const KLOQuadExpr objective = model.getObjective();
    EXPECT_NEAR(objective.getValue(), obj, 1e-6 * std::max(1.0, std::fabs(obj)));
}

INSTANTIATE_TEST_SUITE_P(Lp, Instances, ::testing::Values("afiro", "adlittle", "sc50a"));

}  // namespace
