// The shared test instances as index.csv lists them (name, kind, file, rows,
// cols, integers, optimal objective), for the test suites that solve or read
// them all.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace klotest {

struct Instance {
  std::string name, kind, file;  // file: relative to instancesDir()
  int rows = 0, cols = 0, integers = 0;
  double objective = 0.0;
  double reltol = 1e-6;  // how close the optimum must come (relative)

  bool mip() const { return kind == "MIP"; }
};

// Folder of index.csv: $KLO_INSTANCES_DIR when set, else the one configured.
inline std::string instancesDir() {
  const char* dir = std::getenv("KLO_INSTANCES_DIR");
  return dir && *dir ? dir : KLO_INSTANCES_DIR;
}

inline std::string instancePath(const Instance& i) { return instancesDir() + "/" + i.file; }

// The instances of one kind ("LP", "MIP"), or all of them (""), listed by
// the index.csv of folder (a subfolder such as "qp", or the top one).
inline std::vector<Instance> readIndex(const std::string& kind = "",
                                       const std::string& folder = "") {
  const std::string prefix = folder.empty() ? "" : folder + "/";
  std::vector<Instance> out;
  std::ifstream in(instancesDir() + "/" + prefix + "index.csv");
  std::string line;
  std::getline(in, line);  // header
  while (std::getline(in, line)) {
    std::stringstream ss(line);
    std::vector<std::string> f;
    for (std::string cell; std::getline(ss, cell, ',');) f.push_back(cell);
    if (f.size() != 7 || (!kind.empty() && f[1] != kind)) continue;
    out.push_back({f[0], f[1], prefix + f[2], std::stoi(f[3]), std::stoi(f[4]), std::stoi(f[5]),
                   std::stod(f[6])});
  }
  return out;
}

// The SDP instances (sdp/index.csv: name, kind (SDP, INFEASIBLE or
// UNBOUNDED), file, constraints, size, objective, reltol); rows is the
// number of constraints, cols the order of the block matrix.
inline std::vector<Instance> readSdpIndex() {
  std::vector<Instance> out;
  std::ifstream in(instancesDir() + "/sdp/index.csv");
  std::string line;
  std::getline(in, line);  // header
  while (std::getline(in, line)) {
    std::stringstream ss(line);
    std::vector<std::string> f;
    for (std::string cell; std::getline(ss, cell, ',');) f.push_back(cell);
    f.resize(7);
    Instance i{f[0], f[1], "sdp/" + f[2], std::atoi(f[3].c_str()), std::atoi(f[4].c_str())};
    i.objective = std::atof(f[5].c_str());
    if (!f[6].empty()) i.reltol = std::atof(f[6].c_str());
    out.push_back(i);
  }
  return out;
}

// Test names and printed parameters show the instance's name (with '_'
// for what a test name cannot hold, such as the '-' of "cont-050").
inline std::string instanceName(const ::testing::TestParamInfo<Instance>& info) {
  std::string name = info.param.name;
  for (char& c : name)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  return name;
}
inline void PrintTo(const Instance& i, std::ostream* os) { *os << i.name; }

}  // namespace klotest
