// CoinMpsIO (CoinUtils 2.11) does not free its work arrays when readMps
// gives up on a malformed file; the library reads MPS through it, so the
// malformed-file tests would report that leak of CoinUtils' own.
extern "C" const char* __lsan_default_suppressions() { return "leak:CoinMpsIO::readMps\n"; }
