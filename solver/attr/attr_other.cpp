// Attributes of PSD variables and general constraints.
#include "attr/attr_helpers.h"
#include "klo_c.h"

namespace klo {

void addOtherAttrs(std::vector<AttrDef>& out) {
  out.push_back(numAttr("Dim", AttrType::Int, Level::PsdVar,
                        [](const KLOmodel& m, int k) { return double(m.data.psdVars[k].dim); }));
  out.push_back(strAttr(
      "PsdVarName", Level::PsdVar,
      [](const KLOmodel& m, int k) -> const std::string& { return m.data.psdVars[k].name; },
      [](KLOmodel& m, int k, const std::string& v) { m.data.psdVars[k].name = v; }));
  out.push_back(numAttr("GenConstrType", AttrType::Int, Level::GenConstr,
                        [](const KLOmodel&, int) { return double(KLO_GENCONSTR_INDICATOR); }));
  out.push_back(strAttr(
      "GenConstrName", Level::GenConstr,
      [](const KLOmodel& m, int g) -> const std::string& { return m.data.indicators[g].name; },
      [](KLOmodel& m, int g, const std::string& v) { m.data.indicators[g].name = v; }));
  AttrDef psdX{"PsdX", AttrType::Matrix, Level::PsdVar};
  out.push_back(psdX);
  AttrDef psdObj{"PsdObj", AttrType::Matrix, Level::PsdVar};
  psdObj.matrixSettable = true;
  out.push_back(psdObj);
}

}  // namespace klo
