// Leaks of the engines' own code that the tests cannot avoid, kept out of
// LeakSanitizer's report (the sanitised build's default suppressions).
//  - Cbc, under Bonmin's search, loses the root node when the time limit
//    ends the search during the root's processing.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:Bonmin::Bab::branchAndBound\n";
}
