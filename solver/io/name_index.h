// Names to values for file readers, by open addressing over views of the
// file's text: a reader looks up nearly every field it reads, and a
// node-based map spent most of the reading time of large files on cache
// misses and allocations.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace klo {

class NameIndex {
 public:
  static constexpr int kMissing = -2147483647 - 1;

  // Stores value (not kMissing) under name and returns kMissing, or returns
  // the value the name has already (and stores nothing).  name must
  // outlive the index.
  int insert(std::string_view name, int value);
  // The value stored under name, or kMissing.
  int find(std::string_view name) const;

 private:
  // The name beside its hash: a lookup touches one slot and the text.
  struct Slot {
    std::string_view name;
    uint32_t hash = 0;
    int value = kMissing;  // kMissing when the slot is empty
  };
  // The slot holding name, or the empty one where it would go.
  size_t slotOf(std::string_view name, uint32_t hash) const;
  void grow();

  std::vector<Slot> slots_;
  size_t size_ = 0;
};

}  // namespace klo
