// Attributes of single rows (linear, quadratic and PSD rows alike).
#include "attr/attr_helpers.h"
#include "common/error.h"
#include "store/edit.h"

namespace klo {
namespace {

constexpr AttrType D = AttrType::Double;
constexpr Level R = Level::Row;

const std::vector<int>* rowBasis(const KLOmodel& m) {
  if (!m.data.rowBasis.empty()) return &m.data.rowBasis;
  if (m.results.solved && !m.results.solve.rowBasis.empty()) return &m.results.solve.rowBasis;
  return nullptr;
}

double lower(const KLOmodel& m, int i) { return m.data.rows[i].lower; }
double upper(const KLOmodel& m, int i) { return m.data.rows[i].upper; }
void setLower(KLOmodel& m, int i, double v) { setRowBound(m.data, i, false, v); }
void setUpper(KLOmodel& m, int i, double v) { setRowBound(m.data, i, true, v); }

}  // namespace

void addRowAttrs(std::vector<AttrDef>& out) {
  auto iis = [](const KLOmodel& m, int i) {
    if (m.results.iisRow.empty())
      fail(KLO_ERROR_DATA_NOT_AVAILABLE, "No irreducible infeasible subsystem has been computed");
    return double(m.results.iisRow[i]);
  };
  out.push_back(numAttr("IISConstr", AttrType::Int, R, iis));
  out.push_back(numAttr("IISRow", AttrType::Int, R, iis));
  out.push_back(numAttr(
      "RowBasis", AttrType::Int, R,
      [](const KLOmodel& m, int i) {
        const std::vector<int>* b = rowBasis(m);
        if (!b) fail(KLO_ERROR_DATA_NOT_AVAILABLE, "No basis is known for the rows");
        return double((*b)[i]);
      },
      checkBasisStatus,
      [](KLOmodel& m, int i, double v) {
        if (m.data.rowBasis.empty()) {
          const std::vector<int>* b = rowBasis(m);
          m.data.rowBasis = b ? *b : std::vector<int>(m.data.numRows(), KLO_BASIS_BASIC);
        }
        m.data.rowBasis[i] = static_cast<int>(v);
      },
      true));

  for (const char* name : {"LHS", "QCLHS", "PsdCLHS"})
    out.push_back(numAttr(name, D, R, lower, checkNotNaN, setLower));
  for (const char* name : {"RHS", "QCRHS", "PsdCRHS"})
    out.push_back(numAttr(name, D, R, upper, checkNotNaN, setUpper));
  out.push_back(numAttr("DualSoln", D, R, [](const KLOmodel& m, int i) {
    return resultAt(solution(m).duals, i, "dual values");
  }));
  out.push_back(numAttr("Activity", D, R, [](const KLOmodel& m, int i) {
    return resultAt(solution(m).activities, i, "row activities");
  }));

  auto name = [](const KLOmodel& m, int i) -> const std::string& { return m.data.rowNames.get(i); };
  auto setName = [](KLOmodel& m, int i, const std::string& v) { m.data.rowNames.set(i, v); };
  for (const char* n : {"RowName", "ConstrName", "QCName", "PsdCName"})
    out.push_back(strAttr(n, R, name, setName));
}

}  // namespace klo
