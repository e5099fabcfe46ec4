// The parameter values of one environment, checked against the table.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "env/param_table.h"

namespace klo {

class ParamSet {
 public:
  ParamSet();

  // Row of the parameter, which must exist and be of type want; throws
  // KLO_ERROR_UNKNOWN_PARAMETER or KLO_ERROR_PARAMETER_TYPE otherwise.
  int require(const std::string& name, ParamType want) const;

  int getInt(const std::string& name) const;
  double getDbl(const std::string& name) const;
  const std::string& getStr(const std::string& name) const;
  // Setters refuse values out of range (and NaN) and then change nothing.
  void setInt(const std::string& name, int value);
  void setDbl(const std::string& name, double value);
  void setStr(const std::string& name, const std::string& value);
  // Sets name from its text form, as found in parameter files.
  void setFromText(const std::string& name, const std::string& text);

  // Values by table row, for the library's own use.
  int intAt(int row) const { return static_cast<int>(num_[row]); }
  double dblAt(int row) const { return num_[row]; }

  // (name, value text) of every parameter that differs from its default.
  std::vector<std::pair<std::string, std::string>> nonDefaults() const;

  void reset();

 private:
  std::vector<double> num_;  // int and double values by table row
  std::string logFile_;
};

}  // namespace klo
