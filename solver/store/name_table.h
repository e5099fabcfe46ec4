// Names of one element kind, with lookup by name in O(1) on average.
// The hash index is rebuilt lazily after a deletion (which renumbers the
// later elements) or a rename that hid an entry; other changes keep it up
// to date.  Empty names are allowed and are never found.  With duplicate
// names the lowest index wins.  Names are stored only once one is given:
// a table of empty names is a count.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace klo {

class NameTable {
 public:
  int size() const { return count_; }
  const std::string& get(int i) const;
  void set(int i, std::string name);
  void append(std::string name);
  // Replaces every name; the index is built at the first lookup (a file
  // reader's model may never be searched by name).
  void assign(std::vector<std::string> names);
  // Keeps the names whose flag in keep is true, in order.
  void retain(const std::vector<bool>& keep);
  void clear();
  // Index of the element called name, or -1.
  int find(const std::string& name) const;
  // True when some non-empty name occurs twice.
  bool hasDuplicates() const;

 private:
  void rebuild() const;

  // Fills names_ up to count_ with empty names.
  void spell();

  int count_ = 0;
  std::vector<std::string> names_;  // empty or count_ long
  mutable std::unordered_map<std::string, int> index_;
  mutable bool stale_ = false;
};

}  // namespace klo
