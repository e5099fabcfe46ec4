#include "store/name_table.h"

#include <utility>

#include "store/sparse.h"

namespace klo {

const std::string& NameTable::get(int i) const {
  static const std::string unnamed;
  return names_.empty() ? unnamed : names_[i];
}

void NameTable::spell() { names_.resize(static_cast<size_t>(count_)); }

void NameTable::set(int i, std::string name) {
  if (name.empty() && names_.empty()) return;
  spell();
  if (!stale_ && !names_[i].empty()) {
    auto it = index_.find(names_[i]);
    // The old name pointed here: a later duplicate may now be the owner.
    if (it != index_.end() && it->second == i) stale_ = true;
  }
  names_[i] = std::move(name);
  if (!stale_ && !names_[i].empty()) {
    auto it = index_.find(names_[i]);
    if (it == index_.end() || it->second > i) index_[names_[i]] = i;
  }
}

void NameTable::append(std::string name) {
  ++count_;
  if (name.empty() && names_.empty()) return;
  names_.resize(static_cast<size_t>(count_ - 1));
  names_.push_back(std::move(name));
  if (!stale_ && !names_.back().empty()) index_.emplace(names_.back(), size() - 1);
}

void NameTable::assign(std::vector<std::string> names) {
  names_ = std::move(names);
  count_ = static_cast<int>(names_.size());
  index_.clear();
  stale_ = true;
}

void NameTable::retain(const std::vector<bool>& keep) {
  count_ = 0;
  for (size_t i = 0; i < keep.size(); ++i) count_ += keep[i] ? 1 : 0;
  if (!names_.empty()) klo::retain(names_, keep);
  stale_ = true;
}

void NameTable::clear() {
  count_ = 0;
  names_.clear();
  index_.clear();
  stale_ = false;
}

int NameTable::find(const std::string& name) const {
  if (name.empty()) return -1;
  if (stale_) rebuild();
  auto it = index_.find(name);
  return it == index_.end() ? -1 : it->second;
}

bool NameTable::hasDuplicates() const {
  if (stale_) rebuild();
  size_t named = 0;
  for (const auto& n : names_) named += n.empty() ? 0 : 1;
  return named != index_.size();
}

void NameTable::rebuild() const {
  index_.clear();
  index_.reserve(names_.size());
  for (size_t i = 0; i < names_.size(); ++i)
    if (!names_[i].empty()) index_.emplace(names_[i], static_cast<int>(i));
  stale_ = false;
}

}  // namespace klo
