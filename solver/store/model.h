// The model behind the opaque KLOmodel: its own environment, the data, the
// results of the last solve and the environments of its objectives.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "env/environment.h"
#include "klo_c.h"
#include "store/model_data.h"
#include "store/results.h"

namespace klo {

// Column-wise view of the linear matrix, built on demand.
struct ColumnView {
  std::vector<int> beg;  // numVars + 1 offsets
  std::vector<int> row;
  std::vector<double> val;
};

}  // namespace klo

struct KLOmodel {
  explicit KLOmodel(const KLOenv& from);
  KLOmodel(const KLOmodel& other);
  KLOmodel& operator=(const KLOmodel&) = delete;

  KLOenv env;  // a copy of the environment the model was made from
  klo::ModelData data;
  klo::Results results;
  std::map<int, std::unique_ptr<KLOenv>> objectiveEnvs;
  KLOcallbackfn callback = nullptr;
  void* callbackData = nullptr;
  bool busy = false;  // a solve is running (set by KLOoptimize)

  // Records a change of the data: discards the results of the last solve
  // (unless keepResults) and the cached column view.
  void changed(bool keepResults = false);
  // The column-wise matrix, rebuilt after changes.
  const klo::ColumnView& columns() const;

 private:
  mutable std::unique_ptr<klo::ColumnView> columns_;
};
