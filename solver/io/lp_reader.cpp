// Reads the LP format: objective (with "[ ... ] / 2" quadratic terms and a
// constant), constraints (ranges "lo <= expr <= up", quadratic terms in
// brackets, indicators "b = 1 -> expr <= rhs"), Bounds, Generals,
// Binaries, Semi-continuous, SOS and End.
#include <algorithm>
#include <cctype>

#include "common/error.h"
#include "common/text_file.h"
#include "io/lp.h"
#include "io/lp_lexer.h"
#include "klo_c.h"
#include "store/checks.h"
#include "store/edit.h"
#include "store/sparse.h"

namespace klo {
namespace {

enum class Section { None, Objective, Rows, Bounds, Generals, Binaries, Semis, Sos, End };

std::string lower(const std::string& s) {
  std::string out;
  for (char c : s) out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

bool isInfinity(const std::string& name) {
  std::string l = lower(name);
  return l == "inf" || l == "infinity";
}

// A side of a relation: linear and quadratic terms and a constant.
struct Expr {
  std::vector<int> ind;
  std::vector<double> val;
  std::vector<int> qr, qc;
  std::vector<double> qv;
  double constant = 0;
  bool hasVars() const { return !ind.empty() || !qr.empty(); }
};

class LpReader {
 public:
  LpReader(const std::string& text, const std::string& path) : path_(path), t_(lexLp(text, path)) {
    size_t at = text.find("\\ Problem name: ");
    if (at == 0) d_.name = text.substr(16, text.find('\n') - 16);
  }

  ModelData read() {
    Section s = Section::None;
    while (s != Section::End) {
      Section next = sectionAt();
      if (next != Section::None) {
        s = next;
        if (s == Section::Objective) d_.sense = sense_;
        continue;
      }
      if (peek().kind == LpToken::End) fail(KLO_ERROR_FILE_READ, where() + "missing End");
      size_t before = p_;
      statement(s);
      if (p_ == before) bad("unexpected '" + peek().text + "'");
    }
    return finish();
  }

 private:
  const LpToken& peek(size_t k = 0) const { return t_[std::min(p_ + k, t_.size() - 1)]; }
  const LpToken& next() { return t_[p_ < t_.size() - 1 ? p_++ : p_]; }
  std::string where() const { return path_ + ":" + std::to_string(peek().line) + ": "; }
  [[noreturn]] void bad(const std::string& what) const {
    fail(KLO_ERROR_FILE_READ, where() + what);
  }
  bool isOp(const char* op, size_t k = 0) const {
    return peek(k).kind == LpToken::Op && peek(k).text == op;
  }
  bool isRelation() const { return isOp("<=") || isOp(">=") || isOp("="); }

  // A section header (a keyword standing alone on its line), consumed;
  // None otherwise.
  Section sectionAt() {
    size_t words = 0;
    int sense = sense_;
    Section s = headerAhead(words, sense);
    if (s != Section::None) p_ += words, sense_ = sense;
    return s;
  }

  // The section whose header starts at the current token, with its length
  // in tokens and the objective sense it sets.
  Section headerAhead(size_t& words, int& sense) const {
    const LpToken& tok = peek();
    if (!tok.lineStart || tok.kind != LpToken::Name) return Section::None;
    std::string w = lower(tok.text);
    words = 1;
    if ((w == "subject" && lower(peek(1).text) == "to") ||
        (w == "such" && lower(peek(1).text) == "that"))
      w += " " + lower(peek(1).text), words = 2;
    if (w == "semi" && isOp("-", 1) && lower(peek(2).text) == "continuous")
      w = "semi-continuous", words = 3;  // lexed as three tokens
    if (peek(words).line == tok.line && peek(words).kind != LpToken::End) return Section::None;
    for (const char* k : {"minimize", "minimise", "minimum", "min"})
      if (w == k) return sense = 1, Section::Objective;
    for (const char* k : {"maximize", "maximise", "maximum", "max"})
      if (w == k) return sense = -1, Section::Objective;
    for (const char* k : {"subject to", "such that", "st", "s.t.", "st."})
      if (w == k) return Section::Rows;
    if (w == "bounds" || w == "bound") return Section::Bounds;
    for (const char* k : {"general", "generals", "gen", "integer", "integers"})
      if (w == k) return Section::Generals;
    for (const char* k : {"binary", "binaries", "bin"})
      if (w == k) return Section::Binaries;
    for (const char* k : {"semi-continuous", "semicontinuous", "semis", "semi"})
      if (w == k) return Section::Semis;
    if (w == "sos") return Section::Sos;
    if (w == "end") return Section::End;
    return Section::None;
  }

  bool atHeader() const {
    size_t words = 0;
    int sense = 0;
    return headerAhead(words, sense) != Section::None;
  }

  void statement(Section s) {
    switch (s) {
      case Section::Objective: return objective();
      case Section::Rows: return row();
      case Section::Bounds: return bound();
      case Section::Generals: return typeName('I');
      case Section::Binaries: return typeName('B');
      case Section::Semis: return typeName('S');
      case Section::Sos: return sos();
      default: bad("expected a section such as Minimize or Subject To");
    }
  }

  int column(const std::string& name) {
    int j = d_.varNames.find(name);
    if (j >= 0) return j;
    NewVars v;
    v.cols.n = 1;
    const char* n = name.c_str();
    v.names = &n;
    addVars(d_, v);
    return d_.numVars() - 1;
  }

  std::string optionalLabel() {
    if (peek().kind == LpToken::Name && isOp(":", 1)) {
      std::string name = next().text;
      next();
      return name;
    }
    return "";
  }

  double number() {
    double sign = 1;
    while (isOp("+") || isOp("-")) sign *= next().text == "-" ? -1 : 1;
    if (peek().kind == LpToken::Number) return sign * next().value;
    if (peek().kind == LpToken::Name && isInfinity(peek().text)) {
      next();
      return sign * 1e30;
    }
    bad("expected a number");
  }

  void quadTerms(Expr& e, double sign) {
    next();  // '['
    std::vector<double> vals;
    size_t first = e.qv.size();
    while (!isOp("]")) {
      if (peek().kind == LpToken::End) bad("unclosed '['");
      double s = 1;
      while (isOp("+") || isOp("-")) s *= next().text == "-" ? -1 : 1;
      double c = peek().kind == LpToken::Number ? next().value : 1;
      if (peek().kind != LpToken::Name) bad("expected a variable in a quadratic term");
      int a = column(next().text), b;
      if (isOp("^")) {
        next();
        if (peek().kind != LpToken::Number || peek().value != 2)
          bad("only squares (^ 2) are allowed");
        next();
        b = a;
      } else if (isOp("*")) {
        next();
        if (peek().kind != LpToken::Name) bad("expected a variable after '*'");
        b = column(next().text);
      } else {
        bad("expected '^ 2' or '* variable' in a quadratic term");
      }
      e.qr.push_back(a);
      e.qc.push_back(b);
      e.qv.push_back(sign * s * c);
    }
    next();  // ']'
    if (isOp("/")) {
      next();
      if (peek().kind != LpToken::Number || peek().value == 0) bad("expected a divisor after '/'");
      double div = next().value;
      for (size_t k = first; k < e.qv.size(); ++k) e.qv[k] /= div;
    }
  }

  // One term; false when the tokens do not start one.
  bool term(Expr& e, bool first) {
    double sign = 1;
    bool signed_ = false;
    while (isOp("+") || isOp("-")) {
      sign *= next().text == "-" ? -1 : 1;
      signed_ = true;
    }
    if (!signed_ && !first) return false;
    if (isOp("[")) {
      quadTerms(e, sign);
      return true;
    }
    double c = 1;
    bool haveNumber = false;
    bool star = false;
    int numberLine = peek().line;
    if (peek().kind == LpToken::Number) {
      c = next().value;
      haveNumber = true;
      star = isOp("*");
      if (star) next();
    }
    // A name followed by ':' labels the next statement, and a number ends
    // its line's statement unless its variable follows on the same line.
    bool variable = peek().kind == LpToken::Name && !isOp(":", 1) && !atHeader() &&
                    (!haveNumber || peek().line == numberLine || star);
    if (variable) {
      if (isInfinity(peek().text) && !haveNumber) {
        next();
        e.constant += sign * 1e30;
        return true;
      }
      e.ind.push_back(column(next().text));
      e.val.push_back(sign * c);
      return true;
    }
    if (haveNumber) {
      e.constant += sign * c;
      return true;
    }
    if (signed_) bad("expected a term after the sign");
    return false;
  }

  Expr expr() {
    Expr e;
    if (!term(e, true)) return e;
    while (term(e, false)) {
    }
    return e;
  }

  // One statement: a second one means terms without an operator between
  // them ("x y", or a coefficient like "nan y").
  void objective() {
    if (objectiveRead_) bad("expected an operator between the objective's terms");
    objectiveRead_ = true;
    objectiveLine_ = peek().line;
    optionalLabel();
    Expr e = expr();
    objInd_.insert(objInd_.end(), e.ind.begin(), e.ind.end());
    objVal_.insert(objVal_.end(), e.val.begin(), e.val.end());
    objQr_.insert(objQr_.end(), e.qr.begin(), e.qr.end());
    objQc_.insert(objQc_.end(), e.qc.begin(), e.qc.end());
    objQv_.insert(objQv_.end(), e.qv.begin(), e.qv.end());
    objConst_ += e.constant;
  }

  std::string relation() {
    if (!isRelation()) bad("expected <=, >= or =");
    return next().text;
  }

  void row() {
    int line = peek().line;
    std::string name = optionalLabel();
    if (peek().kind == LpToken::Name && isOp("=", 1) && peek(2).kind == LpToken::Number &&
        isOp("->", 3))
      return indicator(name, line);
    double lo = -KLO_INFINITY, up = KLO_INFINITY;
    Expr body;
    if (startsWithNumber()) {  // lo <= expr <= up, number <= expr, or "0 <= 5"
      double first = number();
      std::string op1 = relation();
      body = expr();
      if (isRelation()) {
        std::string op2 = relation();
        double last = number();
        if (op1 != op2 || op1 == "=")
          fail(KLO_ERROR_FILE_READ, path_ + ":" + std::to_string(line) +
                                        ": a range must read  number <= expression <= number");
        lo = (op1 == "<=" ? first : last) - body.constant;
        up = (op1 == "<=" ? last : first) - body.constant;
      } else if (body.hasVars()) {
        setBounds(op1 == "<=" ? ">=" : op1 == ">=" ? "<=" : "=", first - body.constant, lo, up);
      } else {  // an empty row: constant relation constant
        setBounds(op1, body.constant - first, lo, up);
        body = Expr();
      }
    } else {
      body = expr();
      std::string op = relation();
      setBounds(op, number() - body.constant, lo, up);
    }
    rows_.push_back(PendingRow{name, line, std::move(body), lo, up});
  }

  // A constant (optionally signed number or infinity) followed by a relation.
  bool startsWithNumber() const {
    size_t k = 0;
    while (isOp("+", k) || isOp("-", k)) ++k;
    bool constant = peek(k).kind == LpToken::Number ||
                    (peek(k).kind == LpToken::Name && isInfinity(peek(k).text));
    return constant && (isOp("<=", k + 1) || isOp(">=", k + 1) || isOp("=", k + 1));
  }

  static void setBounds(const std::string& op, double rhs, double& lo, double& up) {
    if (op == "<=")
      up = rhs;
    else if (op == ">=")
      lo = rhs;
    else
      lo = up = rhs;
  }

  void indicator(const std::string& name, int line) {
    PendingIndicator ic{name, line, column(next().text), 0, {}, '<', 0};
    next();  // '='
    double v = next().value;
    if (v != 0 && v != 1) bad("an indicator value must be 0 or 1");
    ic.binVal = static_cast<int>(v);
    next();  // '->'
    Expr e = expr();
    std::string op = relation();
    double rhs = number();
    if (e.hasVars() && !e.qr.empty()) bad("an indicator constraint must be linear");
    ic.sense = op == "<=" ? '<' : op == ">=" ? '>' : '=';
    ic.rhs = rhs - e.constant;
    ic.body = std::move(e);
    indicators_.push_back(std::move(ic));
  }

  void bound() {
    if (peek().kind == LpToken::Name && lower(peek(1).text) == "free" && !isInfinity(peek().text)) {
      int j = column(next().text);
      next();
      d_.lb[j] = -KLO_INFINITY;
      d_.ub[j] = KLO_INFINITY;
      return;
    }
    if (startsWithNumber()) {  // number <= x [<= number]
      double first = number();
      std::string op1 = relation();
      int j = boundVariable();
      applyBound(j, op1 == "<=" ? ">=" : op1 == ">=" ? "<=" : "=", first);
      if (isRelation()) {
        std::string op2 = relation();
        applyBound(j, op2, number());
      }
      return;
    }
    int j = boundVariable();
    std::string op = relation();
    applyBound(j, op, number());
  }

  int boundVariable() {
    if (peek().kind != LpToken::Name || isInfinity(peek().text))
      bad("a bound must read  variable <= number  or  number <= variable <= number");
    return column(next().text);
  }

  void applyBound(int j, const std::string& op, double v) {
    v = normBound(v);
    if (op == "<=")
      d_.ub[j] = v;
    else if (op == ">=")
      d_.lb[j] = v;
    else
      d_.lb[j] = d_.ub[j] = v;
  }

  void typeName(char type) {
    if (peek().kind != LpToken::Name) bad("expected a variable name");
    int j = column(next().text);
    char& t = d_.type[j];
    if (type == 'S')
      t = t == 'I' ? 'N' : 'S';
    else if (type == 'I')
      t = t == 'S' ? 'N' : 'I';
    else
      t = 'B';
  }

  void sos() {
    int line = peek().line;
    optionalLabel();
    if (peek().kind != LpToken::Name || (lower(peek().text) != "s1" && lower(peek().text) != "s2"))
      bad("expected S1 or S2");
    int type = peek().text[1] - '0';
    next();
    if (!isOp("::")) bad("expected '::' after the SOS type");
    next();
    PendingSos s{line, type, {}, {}};
    // member:weight, the weight with an optional sign (the writer writes
    // negative weights as they are)
    auto weightAhead = [this] {
      return peek(2).kind == LpToken::Number ||
             ((isOp("-", 2) || isOp("+", 2)) && peek(3).kind == LpToken::Number);
    };
    while (peek().kind == LpToken::Name && isOp(":", 1) && weightAhead()) {
      s.members.push_back(column(next().text));
      next();
      s.weights.push_back(number());
    }
    sets_.push_back(std::move(s));
  }

  // Turns the collected statements into the model, checking what the store
  // checks (a failure names the statement's line).
  ModelData finish() {
    int n = d_.numVars();
    atLine(objectiveLine_, [&] {
      SparseVec obj =
          makeSparse(static_cast<int>(objInd_.size()), objInd_.data(), objVal_.data(), n);
      for (int k = 0; k < obj.size(); ++k) d_.objectives[0].coef[obj.ind[k]] = obj.val[k];
      d_.qobj =
          makeQuad(static_cast<int>(objQv_.size()), objQr_.data(), objQc_.data(), objQv_.data(), n);
      checkCoef(objConst_, "The objective's constant");
      d_.objectives[0].constant = objConst_;
    });
    for (int j = 0; j < n; ++j) {
      d_.lb[j] = clipBound(d_.type[j], false, d_.lb[j]);
      d_.ub[j] = clipBound(d_.type[j], true, d_.ub[j]);
    }
    for (PendingRow& r : rows_) atLine(r.line, [&] { addRow(r); });
    for (PendingIndicator& ic : indicators_)
      atLine(ic.line, [&] {
        addIndicator(d_, ic.name.c_str(), ic.binVar, ic.binVal,
                     static_cast<int>(ic.body.ind.size()), ic.body.ind.data(), ic.body.val.data(),
                     ic.sense, ic.rhs);
      });
    for (PendingSos& s : sets_)
      atLine(s.line, [&] {
        int beg = 0;
        addSos(d_,
               {1, static_cast<int>(s.members.size()), &beg, s.members.data(), s.weights.data()},
               &s.type);
      });
    return std::move(d_);
  }

  template <class F>
  void atLine(int line, F&& f) {
    try {
      f();
    } catch (const Error& e) {
      fail(KLO_ERROR_FILE_READ, path_ + ":" + std::to_string(line) + ": " + e.message);
    }
  }

  struct PendingRow {
    std::string name;
    int line;
    Expr body;
    double lower, upper;
  };
  struct PendingIndicator {
    std::string name;
    int line;
    int binVar, binVal;
    Expr body;
    char sense;
    double rhs;
  };
  struct PendingSos {
    int line;
    int type;
    std::vector<int> members;
    std::vector<double> weights;
  };

  void addRow(const PendingRow& r) {
    Row row;
    int n = d_.numVars();
    row.lin =
        makeSparse(static_cast<int>(r.body.ind.size()), r.body.ind.data(), r.body.val.data(), n);
    QuadTerms q = makeQuad(static_cast<int>(r.body.qv.size()), r.body.qr.data(), r.body.qc.data(),
                           r.body.qv.data(), n);
    if (q.size() > 0) row.nl.ensure().quad = std::move(q);
    row.lower = normBound(r.lower);
    row.upper = normBound(r.upper);
    appendRow(d_, std::move(row), r.name.c_str());
  }

  std::string path_;
  std::vector<LpToken> t_;
  size_t p_ = 0;
  int sense_ = 1;
  ModelData d_;
  std::vector<int> objInd_, objQr_, objQc_;
  std::vector<double> objVal_, objQv_;
  double objConst_ = 0;
  bool objectiveRead_ = false;
  int objectiveLine_ = 0;
  std::vector<PendingRow> rows_;
  std::vector<PendingIndicator> indicators_;
  std::vector<PendingSos> sets_;
};

}  // namespace

ModelData readLp(const std::string& path) {
  std::string text = readTextFile(path);
  return LpReader(text, path).read();
}

}  // namespace klo
