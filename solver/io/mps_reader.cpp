#include <CoinMessageHandler.hpp>
#include <CoinMpsIO.hpp>
#include <CoinPackedMatrix.hpp>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <memory>
#include <sstream>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "io/mps.h"
#include "io/mps_text.h"
#include "common/text_file.h"
#include "klo_c.h"
#include "store/checks.h"
#include "store/sparse.h"

namespace klo {
namespace {

// Keeps CoinMpsIO quiet and remembers its first complaint.
class FirstProblem : public CoinMessageHandler {
 public:
  FirstProblem() { setLogLevel(1); }
  int print() override {
    int n = currentMessage().externalNumber();
    if (n >= 3000 && first_.empty()) {
      std::string text = messageBuffer();
      size_t gap = text.find(' ');
      first_ =
          gap != std::string::npos && text.compare(0, 4, "Coin") == 0 ? text.substr(gap + 1) : text;
    }
    return 0;
  }
  void checkSeverity() override {}  // the default aborts on severe messages
  const std::string& first() const { return first_; }

 private:
  std::string first_;
};

// Serves CoinMpsIO's card reader from a string: a temporary file would cost
// more than the whole read on small models (create, write, unlink).
class TextInput : public CoinFileInput {
 public:
  TextInput(const std::string& name, const std::string& text) : CoinFileInput(name), text_(text) {
    readType_ = "plain";
  }
  int read(void* buffer, int size) override {
    size_t n = std::min(static_cast<size_t>(std::max(size, 0)), text_.size() - pos_);
    std::memcpy(buffer, text_.data() + pos_, n);
    pos_ += n;
    return static_cast<int>(n);
  }
  char* gets(char* buffer, int size) override {
    if (size <= 0 || pos_ == text_.size()) return nullptr;
    size_t limit = std::min(static_cast<size_t>(size - 1), text_.size() - pos_);
    size_t end = text_.find('\n', pos_);
    size_t n = end == std::string::npos || end - pos_ + 1 > limit ? limit : end - pos_ + 1;
    std::memcpy(buffer, text_.data() + pos_, n);
    buffer[n] = '\0';
    pos_ += n;
    return buffer;
  }

 private:
  const std::string& text_;
  size_t pos_ = 0;
};

// CoinMpsIO reads only named files; its card reader is the one way in.
class TextMpsIO : public CoinMpsIO {
 public:
  int readText(const std::string& name, const std::string& text, int& numSets, CoinSet**& sets) {
    delete cardReader_;
    cardReader_ = new CoinMpsCardReader(new TextInput(name, text), this);
    return readMps(numSets, sets);
  }
};

struct Attempt {
  std::unique_ptr<TextMpsIO> io = std::make_unique<TextMpsIO>();
  FirstProblem handler;
  int numSets = 0;
  CoinSet** sets = nullptr;
  int status = 0;
  ~Attempt() {
    for (int k = 0; k < numSets; ++k) delete sets[k];
    delete[] sets;
  }
};

// The attempt's reader points into text, and reads on later (QUADOBJ): text
// must outlive the attempt.
std::unique_ptr<Attempt> attempt(const std::string& path, const std::string& text) {
  auto a = std::make_unique<Attempt>();
  a->io->passInMessageHandler(&a->handler);
  a->status = a->io->readText(path, text, a->numSets, a->sets);
  return a;
}

double bound(double v) { return normBound(v); }

// "path:line: what" from a CoinMpsIO message such as "Bad image at line 6
// < x obj abc >".
std::string complaint(const std::string& path, std::string msg) {
  if (msg.empty()) return path + ": not a valid MPS file";
  size_t file = msg.find(" of file ");
  if (file != std::string::npos) msg.erase(file);
  size_t at = msg.find(" at line ");
  if (at == std::string::npos) return path + ": " + msg;
  size_t digits = at + 9, end = digits;
  while (end < msg.size() && std::isdigit(static_cast<unsigned char>(msg[end]))) ++end;
  std::string line = msg.substr(digits, end - digits);
  msg.erase(at, end - at);
  return path + ":" + line + ": " + msg;
}

void copyColumns(const CoinMpsIO& io, ModelData& d) {
  int n = io.getNumCols();
  d.type.reserve(n);
  d.lb.reserve(n);
  d.ub.reserve(n);
  d.start.reserve(n);
  for (int j = 0; j < n; ++j) {
    int kind = io.isIntegerOrSemiContinuous(j);
    double lb = bound(io.getColLower()[j]), ub = bound(io.getColUpper()[j]);
    char t = kind == 1 ? (lb == 0 && ub == 1 ? 'B' : 'I') : kind >= 2 ? 'S' : 'C';
    d.type.push_back(t);
    d.lb.push_back(lb);
    d.ub.push_back(ub);
    d.start.push_back(KLO_UNDEFINED);
    d.varNames.append(io.columnName(j));
  }
  d.objectives[0].coef.assign(io.getObjCoefficients(), io.getObjCoefficients() + n);
  d.objectives[0].constant = 0.0 - io.objectiveOffset();  // no -0 for an absent constant
}

void copyRows(const CoinMpsIO& io, ModelData& d) {
  CoinPackedMatrix byRow(*io.getMatrixByCol());
  byRow.reverseOrdering();  // row-major
  int m = io.getNumRows();
  d.rows.resize(m);
  std::vector<std::pair<int, double>> e;
  for (int i = 0; i < m; ++i) {
    Row& r = d.rows[i];
    r.lower = bound(io.getRowLower()[i]);
    r.upper = bound(io.getRowUpper()[i]);
    CoinShallowPackedVector v = byRow.getVector(i);
    e.clear();
    for (int k = 0; k < v.getNumElements(); ++k)
      if (v.getElements()[k] != 0.0) e.emplace_back(v.getIndices()[k], v.getElements()[k]);
    std::sort(e.begin(), e.end());
    r.lin.ind.reserve(e.size());
    r.lin.val.reserve(e.size());
    for (const auto& [j, a] : e) {
      r.lin.ind.push_back(j);
      r.lin.val.push_back(a);
    }
    d.rowNames.append(io.rowName(i));
  }
}

void copySets(const Attempt& a, ModelData& d) {
  for (int k = 0; k < a.numSets; ++k) {
    const CoinSet& s = *a.sets[k];
    Sos sos;
    sos.type = s.setType();
    sos.members.assign(s.which(), s.which() + s.numberEntries());
    for (int m = 0; m < s.numberEntries(); ++m)
      sos.weights.push_back(s.weights() ? s.weights()[m] : m + 1.0);
    d.sos.push_back(std::move(sos));
  }
}

// QUADOBJ holds one triangle of Q in  c'x + 1/2 x'Qx.
void copyQuadratic(CoinMpsIO& io, const std::string& path, ModelData& d) {
  const CoinMpsCardReader* reader = io.reader();
  if (!reader || reader->whichSection() != COIN_QUAD_SECTION) return;
  CoinBigIndex* start = nullptr;
  int* col = nullptr;
  double* val = nullptr;
  int status = io.readQuadraticMps(nullptr, start, col, val, 0);
  if (status == 0) {
    for (int j = 0; j < io.getNumCols(); ++j)
      for (CoinBigIndex k = start[j]; k < start[j + 1]; ++k) {
        int i = col[k];
        d.qobj.row.push_back(std::min(i, j));
        d.qobj.col.push_back(std::max(i, j));
        d.qobj.val.push_back(i == j ? val[k] / 2 : val[k]);
      }
  }
  delete[] start;
  delete[] col;
  delete[] val;
  d.qobj = addQuad(QuadTerms(), d.qobj);  // a file may list a term twice
  if (status != 0 && status != -2 && status != -3)
    fail(KLO_ERROR_FILE_READ, path + ": malformed QUADOBJ section");
}

// CoinMpsIO reads a repeated row name as a second row (entries naming it go
// to the first) and a column whose entries are not together as a second
// column of the same name. Both are guesses at a malformed file: refused.
void refuseRepeatedNames(const std::string& path, const NameTable& names, const char* what) {
  if (!names.hasDuplicates()) return;
  for (int i = 0; i < names.size(); ++i)
    if (names.find(names.get(i)) != i)
      fail(KLO_ERROR_FILE_READ, path + ": " + what + " \"" + names.get(i) + "\" occurs twice");
}

}  // namespace

ModelData readMps(const std::string& path) {
  std::string text = readTextFile(path);
  const int sense = objectiveSense(text);
  text = withoutObjsense(qmatrixAsQuadobj(std::move(text)));
  std::string free;  // the retry's text, kept as long as its reader
  std::unique_ptr<Attempt> a = attempt(path, text);
  if (a->status != 0) {
    free = markedFree(text);
    std::unique_ptr<Attempt> retry = attempt(path, free);
    if (retry->status == 0) a = std::move(retry);
  }
  if (a->status != 0) fail(KLO_ERROR_FILE_READ, complaint(path, a->handler.first()));
  ModelData d;
  d.name = a->io->getProblemName();
  d.sense = sense;
  copyColumns(*a->io, d);
  copyRows(*a->io, d);
  refuseRepeatedNames(path, d.rowNames, "row");
  refuseRepeatedNames(path, d.varNames, "column");
  copySets(*a, d);
  copyQuadratic(*a->io, path, d);
  return d;
}

}  // namespace klo
