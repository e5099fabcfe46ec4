// Attributes of single rows (linear, quadratic and PSD rows alike).
#include "attr/attr_helpers.h"
#include "common/error.h"
#include "klo_c.h"
#include "store/edit.h"

namespace klo {
namespace {

constexpr AttrType D = AttrType::Double;
constexpr Level R = Level::Row;

double lower(const KLOmodel& m, int i) { return m.data.rows[i].lower; }
double upper(const KLOmodel& m, int i) { return m.data.rows[i].upper; }
void setLower(KLOmodel& m, int i, double v) { setRowBound(m.data, i, false, v); }
void setUpper(KLOmodel& m, int i, double v) { setRowBound(m.data, i, true, v); }

}  // namespace

void addRowAttrs(std::vector<AttrDef>& out) {
  out.push_back(iisAttr<&Results::iisRow>("IISConstr", R));
  out.push_back(iisAttr<&Results::iisRow>("IISRow", R));
  out.push_back(
      basisAttr<&ModelData::rowBasis, &Results::rowBasis, &ModelData::numRows, KLO_BASIS_BASIC>(
          "RowBasis", R));

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
