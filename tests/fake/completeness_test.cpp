// Every function declared in klo_c.h is defined by the fake: the table below
// takes each one's address (so the program links only if the fake defines
// it), and the test checks the table against the header's declarations.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "klo_c.h"

namespace {

#define KLO_FN(f) \
  { #f, reinterpret_cast < const void*>(&f) }

const std::pair<const char*, const void*> kDefined[] = {
    KLO_FN(KLOemptyenv),
    KLO_FN(KLOloadenv),
    KLO_FN(KLOstartenv),
    KLO_FN(KLOfreeenv),
    KLO_FN(KLOmsg),
    KLO_FN(KLOgeterrormsg),
    KLO_FN(KLOexplainerror),
    KLO_FN(KLOexplainstatus),
    KLO_FN(KLOgetintparam),
    KLO_FN(KLOgetdblparam),
    KLO_FN(KLOgetstrparam),
    KLO_FN(KLOsetintparam),
    KLO_FN(KLOsetdblparam),
    KLO_FN(KLOsetstrparam),
    KLO_FN(KLOgetintparaminfo),
    KLO_FN(KLOgetdblparaminfo),
    KLO_FN(KLOgetstrparaminfo),
    KLO_FN(KLOresetparams),
    KLO_FN(KLOreadparams),
    KLO_FN(KLOwriteparams),
    KLO_FN(KLOnewmodel),
    KLO_FN(KLOreadmodel),
    KLO_FN(KLOcopymodel),
    KLO_FN(KLOfreemodel),
    KLO_FN(KLOread),
    KLO_FN(KLOwrite),
    KLO_FN(KLOrelaxmodel),
    KLO_FN(KLOoptimize),
    KLO_FN(KLOcomputeIIS),
    KLO_FN(KLOfeasrelax),
    KLO_FN(KLOreset),
    KLO_FN(KLOgetenv),
    KLO_FN(KLOgetmultiobjenv),
    KLO_FN(KLOdiscardmultiobjenvs),
    KLO_FN(KLOsetcallbackfunc),
    KLO_FN(KLOaddvar),
    KLO_FN(KLOaddvars),
    KLO_FN(KLOdelvars),
    KLO_FN(KLOgetvars),
    KLO_FN(KLOgetvarbyname),
    KLO_FN(KLOaddconstrs),
    KLO_FN(KLOaddrangeconstr),
    KLO_FN(KLOaddrangeconstrs),
    KLO_FN(KLOdelconstrs),
    KLO_FN(KLOgetconstrs),
    KLO_FN(KLOgetconstrbyname),
    KLO_FN(KLOsetconstrcoeff),
    KLO_FN(KLOgetconstrcoeff),
    KLO_FN(KLOaddqconstr),
    KLO_FN(KLOgetqconstr),
    KLO_FN(KLOaddqpterms),
    KLO_FN(KLOgetq),
    KLO_FN(KLOdelq),
    KLO_FN(KLOaddpsdvar),
    KLO_FN(KLOdelpsdvars),
    KLO_FN(KLOaddrangepsdconstr),
    KLO_FN(KLOaddsos),
    KLO_FN(KLOdelsos),
    KLO_FN(KLOgetsos),
    KLO_FN(KLOaddgenconstrIndicator),
    KLO_FN(KLOgetgenconstrIndicator),
    KLO_FN(KLOdelgenconstrs),
    KLO_FN(KLOsetobjectiven),
    KLO_FN(KLOgetintattr),
    KLO_FN(KLOsetintattr),
    KLO_FN(KLOgetdblattr),
    KLO_FN(KLOsetdblattr),
    KLO_FN(KLOgetstrattr),
    KLO_FN(KLOsetstrattr),
    KLO_FN(KLOgetintattrelement),
    KLO_FN(KLOsetintattrelement),
    KLO_FN(KLOgetdblattrelement),
    KLO_FN(KLOsetdblattrelement),
    KLO_FN(KLOgetcharattrelement),
    KLO_FN(KLOsetcharattrelement),
    KLO_FN(KLOgetstrattrelement),
    KLO_FN(KLOsetstrattrelement),
    KLO_FN(KLOgetintattrarray),
    KLO_FN(KLOsetintattrarray),
    KLO_FN(KLOgetdblattrarray),
    KLO_FN(KLOsetdblattrarray),
    KLO_FN(KLOgetcharattrarray),
    KLO_FN(KLOsetcharattrarray),
    KLO_FN(KLOgetmatattrelement),
    KLO_FN(KLOsetmatattrelement),
    KLO_FN(KLOcbget),
    KLO_FN(KLOcbsolution),
    KLO_FN(KLOcbsolutionp),
    KLO_FN(KLOcbcut),
    KLO_FN(KLOcbcutp),
    KLO_FN(KLOcbbranch),
    KLO_FN(KLOcbbranchp),
};

#undef KLO_FN

std::string headerText() {
  const auto header =
      std::filesystem::path(__FILE__).parent_path() / ".." / ".." / "include" / "klo_c.h";
  std::ifstream in(header);
  EXPECT_TRUE(in) << "cannot open " << header;
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// The header without its comments, which mention functions too.
std::string withoutComments(const std::string& text) {
  std::string code;
  for (std::size_t k = 0; k < text.size();) {
    if (text.compare(k, 2, "/*") == 0) {
      k = std::min(text.find("*/", k + 2), text.size() - 2) + 2;
    } else if (text.compare(k, 2, "//") == 0) {
      k = std::min(text.find('\n', k), text.size());
    } else {
      code += text[k++];
    }
  }
  return code;
}

bool isWordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

// The names of the functions klo_c.h declares: every identifier starting
// with "KLO" and a letter that is followed by '('.
std::set<std::string> declaredFunctions() {
  const std::string code = withoutComments(headerText());
  std::set<std::string> names;
  for (std::size_t k = code.find("KLO"); k != std::string::npos; k = code.find("KLO", k + 1)) {
    if (k > 0 && isWordChar(code[k - 1])) continue;
    std::size_t end = k;
    while (end < code.size() && isWordChar(code[end])) ++end;
    const std::size_t paren = code.find_first_not_of(" \t\n", end);
    if (std::isalpha(static_cast<unsigned char>(code[k + 3])) && paren != std::string::npos &&
        code[paren] == '(') {
      names.insert(code.substr(k, end - k));
    }
  }
  return names;
}

TEST(Completeness, TheFakeDefinesEveryFunctionOfTheHeader) {
  std::set<std::string> defined;
  for (const auto& [name, address] : kDefined) {
    EXPECT_NE(address, nullptr) << name;
    EXPECT_TRUE(defined.insert(name).second) << name << " listed twice";
  }
  const std::set<std::string> declared = declaredFunctions();
  EXPECT_GT(declared.size(), 80u) << "the header was not read";
  EXPECT_EQ(declared, defined);
}

}  // namespace
