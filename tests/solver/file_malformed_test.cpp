// Malformed model files: a code and a message with file and line, never a
// crash, and a model given to KLOread stays as it was.
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

using klotest::TempFile;

struct BadFile {
  const char* suffix;
  const char* text;
  const char* line;  // ":n" expected in the message, ":" for some line, "" for none
};

const BadFile kBadFiles[] = {
    // MPS
    {".mps", "garbage\n\x01\x02\n", ":1"},
    {".mps", "NAME t\nROWS\n N obj\n L c1\nCOLUMNS\n    x obj abc c1 2\nRHS\nENDATA\n", ":6"},
    {".mps", "NAME t\nROWS\n N obj\n L c1\nCOLUMNS\n    x c9 1\nRHS\nENDATA\n", ":6"},
    {".mps",
     "NAME t\nROWS\n N obj\n L c1\nCOLUMNS\n    x obj 1 c1 2\nBOUNDS\n UP BND y 4\nENDATA\n", ":"},
    {".mps", "NAME t\nROWS\n N obj\n Q c1\nENDATA\n", ":4"},
    {".mps", "", ""},
    // a repeated row name; a column whose entries are not together
    {".mps", "NAME t\nROWS\n N obj\n L c1\n L c1\nCOLUMNS\n    x obj 1 c1 2\nENDATA\n", ""},
    {".mps", "NAME t\nROWS\n N obj\n L c1\nCOLUMNS\n    x obj 1\n    y c1 1\n    x c1 2\nENDATA\n",
     ""},
    // ".qps" files are MPS files: an unknown row in QCMATRIX, a NaN term
    {".qps", "NAME t\nROWS\n N obj\n L c1\nCOLUMNS\n    x c1 1\nQCMATRIX c2\n    x x 1\nENDATA\n",
     ":7"},
    {".qps", "NAME t\nROWS\n N obj\nCOLUMNS\n    x obj 1\nQUADOBJ\n    x x NaN\nENDATA\n", ":7"},
    // LP
    {".lp", "Minimize\n obj: x + y\nSubject To\n c1: x + y => >= 1\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x +\nSubject To\n c1: x >= 1\nEnd\n", ":3"},
    {".lp", "Minimize\n obj: x\nSubject To\n c1: x + y >= 1\n", ":5"},
    {".lp", "Minimize\n obj: x\nSubject To\n c1: x @ 2\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSubject To\n c1: x >= y\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: [ x * ]\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x\nBounds\n 3 x <= 4\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSubject To\n i: y = 1 -> x <= 2\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSOS\n s: S3 :: x:1\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSOS\n s: S1 :: x:1 x:2\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSubject To\n c: 1 <= x >= 2\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x + nan y\nSubject To\n c: x >= 1\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x + [ nan x ^ 2 ] / 2\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x\nSubject To\n c: [ x * y + inf y ^ 2 ] <= 1\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSubject To\n c: [ x * y ] + 1e400 x <= 1\nEnd\n", ":4"},
    // finite numbers whose sums or quotients are not
    {".lp", "Minimize\n obj: x\n + [ 1e300 x ^ 2 ] / 1e-300\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: 1e308 x + 1e308 x\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x + 1e308 + 1e308\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x\nSubject To\n c: [ 1e308 x * y + 1e308 y * x ] <= 1\nEnd\n", ":4"},
    {".qps",
     "NAME t\nROWS\n N obj\nCOLUMNS\n    x obj 1\n    y obj 1\nQUADOBJ\n    x y 1e308\n"
     "    y x 1e308\nENDATA\n",
     ":7"},
    {".lp", "\x7f\x45\x4c\x46\x02\x01", ":1"},
    {".lp", "", ""},
};

using MalformedFiles = klotest::ModelTest;

TEST_F(MalformedFiles, EachIsRefusedWithFileAndLine) {
  addVars(2);
  std::string before = klotest::snapshot(model);
  for (const BadFile& bad : kBadFiles) {
    TempFile file(bad.suffix);
    file.write(bad.text);
    SCOPED_TRACE(std::string(bad.suffix) + ": " + bad.text);
    KLOmodel* m = nullptr;
    EXPECT_EQ(KLOreadmodel(env, file.c_str(), &m), KLO_ERROR_FILE_READ);
    EXPECT_EQ(m, nullptr);
    std::string msg = lastError();
    size_t at = msg.find(file.path() + bad.line);
    ASSERT_NE(at, std::string::npos) << msg;
    if (std::string(bad.line) == ":") {
      EXPECT_TRUE(std::isdigit(static_cast<unsigned char>(msg[at + file.path().size() + 1])))
          << msg;
    }
    EXPECT_EQ(KLOread(model, file.c_str()), KLO_ERROR_FILE_READ);
    EXPECT_EQ(klotest::snapshot(model), before);
  }
}

TEST_F(MalformedFiles, TruncatedCopiesOfAGoodFileNeverCrash) {
  const int ind[] = {0, 1};
  const double val[] = {1, 2};
  addVars(2);
  ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, val, -1, 4, "r"), KLO_OK);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 1, 'I'), KLO_OK);
  for (const char* suffix : {".lp", ".mps"}) {
    TempFile good(suffix);
    ASSERT_EQ(KLOwrite(model, good.c_str()), KLO_OK);
    std::string text = good.read();
    for (size_t cut = 0; cut < text.size(); cut += 3) {
      TempFile part(suffix);
      part.write(text.substr(0, cut));
      KLOmodel* m = nullptr;
      int status = KLOreadmodel(env, part.c_str(), &m);
      EXPECT_TRUE(status == KLO_OK || status == KLO_ERROR_FILE_READ) << suffix << " cut at " << cut;
      KLOfreemodel(m);
    }
  }
}

TEST_F(MalformedFiles, MissingFilesAndUnknownFormats) {
  KLOmodel* m = nullptr;
  EXPECT_EQ(KLOreadmodel(env, "/nonexistent/model.mps", &m), KLO_ERROR_FILE_OPEN);
  EXPECT_NE(lastError().find("/nonexistent/model.mps"), std::string::npos);
  EXPECT_EQ(KLOreadmodel(env, "/nonexistent/model.lp.gz", &m), KLO_ERROR_FILE_OPEN);
  EXPECT_EQ(KLOreadmodel(env, "model.xyz", &m), KLO_ERROR_FILE_FORMAT);
  EXPECT_EQ(KLOreadmodel(env, nullptr, &m), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOread(model, "/nonexistent/start.mst"), KLO_ERROR_FILE_OPEN);
}

TEST_F(MalformedFiles, FreeFormatMpsWithoutItsMarkerIsRead) {
  TempFile file(".mps");
  file.write(
      "NAME free\nROWS\n N obj\n L c1\nCOLUMNS\n x obj 1 c1 2\n y c1 1\nRHS\n RHS c1 3\n"
      "BOUNDS\n FR BND x\n MI BND y\nENDATA\n");
  KLOmodel* m = nullptr;
  ASSERT_EQ(KLOreadmodel(env, file.c_str(), &m), KLO_OK) << lastError();
  double lb = 0;
  ASSERT_EQ(KLOgetdblattrelement(m, "LB", 1, &lb), KLO_OK);
  EXPECT_EQ(lb, -KLO_INFINITY);
  KLOfreemodel(m);
}

TEST_F(MalformedFiles, MpsObjectiveSenseIsRead) {
  TempFile file(".mps");
  file.write(
      "NAME t\nOBJSENSE\n    MAX\nROWS\n N obj\n L c1\nCOLUMNS\n    x obj 1 c1 1\nRHS\n    RHS c1 "
      "4\nENDATA\n");
  KLOmodel* m = nullptr;
  ASSERT_EQ(KLOreadmodel(env, file.c_str(), &m), KLO_OK) << lastError();
  int sense = 0;
  ASSERT_EQ(KLOgetintattr(m, "ModelSense", &sense), KLO_OK);
  EXPECT_EQ(sense, KLO_MAXIMIZE);
  KLOfreemodel(m);
}

}  // namespace

namespace {

// The afiro instance, compressed, with its bytes as read.
std::string afiroGz() {
  std::ifstream in(std::string(KLO_INSTANCES_DIR) + "/afiro.mps.gz", std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

TEST_F(MalformedFiles, WhatIsNoFileOrIsDamagedIsRefused) {
  const std::string gz = afiroGz();
  std::string badCrc = gz;
  badCrc[badCrc.size() - 6] ^= 0x55;  // the checksum in the trailer
  struct Case {
    const char* what;
    std::string path;   // read as it is, when set
    std::string bytes;  // else written to a temporary .mps.gz file
    int code;
  };
  TempFile longLine(".lp"), directory(".mps"), device(".mps");
  longLine.write(std::string(KLO_MAX_LINE_LENGTH + 1, 'x'));
  std::filesystem::create_directory(directory.path());
  std::filesystem::create_symlink("/dev/zero", device.path());
  const Case cases[] = {
      {"a directory", directory.path(), "", KLO_ERROR_FILE_OPEN},
      {"a device", device.path(), "", KLO_ERROR_FILE_OPEN},
      {"cut in the trailer", "", gz.substr(0, gz.size() - 2), KLO_ERROR_FILE_READ},
      {"cut in the data", "", gz.substr(0, gz.size() / 2), KLO_ERROR_FILE_READ},
      {"a wrong checksum", "", badCrc, KLO_ERROR_FILE_READ},
      {"a line too long", longLine.path(), "", KLO_ERROR_FILE_READ},
      {"whole", "", gz, KLO_OK},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    TempFile file(".mps.gz");
    if (c.path.empty()) std::ofstream(file.path(), std::ios::binary) << c.bytes;
    KLOmodel* m = nullptr;
    EXPECT_EQ(KLOreadmodel(env, (c.path.empty() ? file.path() : c.path).c_str(), &m), c.code)
        << lastError();
    KLOfreemodel(m);
  }
  EXPECT_EQ(KLOreadparams(env, device.path().c_str()), KLO_ERROR_FILE_OPEN);
  std::filesystem::remove(directory.path());
}

}  // namespace
