#include "io/name_index.h"

#include <cstring>

namespace klo {
namespace {

// Eight bytes at a time, multiplied and folded: names are short, and most
// differ only in their last characters.
uint32_t hashOf(std::string_view s) {
  uint64_t h = 0x9E3779B97F4A7C15ull ^ s.size();
  size_t i = 0;
  for (; i + 8 <= s.size(); i += 8) {
    uint64_t w;
    std::memcpy(&w, s.data() + i, 8);
    h = (h ^ w) * 0xFF51AFD7ED558CCDull;
    h ^= h >> 32;
  }
  uint64_t w = 0;
  if (i < s.size()) std::memcpy(&w, s.data() + i, s.size() - i);
  h = (h ^ w) * 0xC4CEB9FE1A85EC53ull;
  return static_cast<uint32_t>(h ^ h >> 29);
}

}  // namespace

size_t NameIndex::slotOf(std::string_view name, uint32_t hash) const {
  size_t mask = slots_.size() - 1;
  for (size_t s = hash & mask;; s = (s + 1) & mask) {
    const Slot& slot = slots_[s];
    if (slot.value == kMissing || (slot.hash == hash && slot.name == name)) return s;
  }
}

int NameIndex::insert(std::string_view name, int value) {
  if (2 * (size_ + 1) > slots_.size()) grow();
  uint32_t hash = hashOf(name);
  Slot& slot = slots_[slotOf(name, hash)];
  if (slot.value != kMissing) return slot.value;
  slot = {name, hash, value};
  ++size_;
  return kMissing;
}

int NameIndex::find(std::string_view name) const {
  if (slots_.empty()) return kMissing;
  return slots_[slotOf(name, hashOf(name))].value;
}

// Doubles the table (at most half full, so probes stay short).
void NameIndex::grow() {
  std::vector<Slot> old(slots_.empty() ? 16 : 2 * slots_.size());
  old.swap(slots_);
  size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (slot.value == kMissing) continue;
    size_t s = slot.hash & mask;
    while (slots_[s].value != kMissing) s = (s + 1) & mask;
    slots_[s] = slot;
  }
}

}  // namespace klo
