// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_DETAIL_VALUE_MAP_H
#define NORDIKA_DETAIL_VALUE_MAP_H

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace nordika::detail {

/// A std::map from names to values that counts the operations which may remove
/// elements. An expression keeps the addresses of its variables' values between
/// calls; version() shows whether they are still good. With a look-up of each
/// variable a call takes two to three times as long, and a traced run of simple
/// iterations a third longer.
class ValueMap : private std::map<std::string, double> {
  using Map = std::map<std::string, double>;

 public:
  using Map::at;
  using Map::begin;
  using Map::const_iterator;
  using Map::count;
  using Map::emplace;
  using Map::empty;
  using Map::end;
  using Map::find;
  using Map::insert_or_assign;
  using Map::iterator;
  using Map::size;
  using Map::value_type;
  using Map::operator[];

  ValueMap() = default;
  ValueMap(const ValueMap&) = default;
  ValueMap(ValueMap&& other) noexcept : Map(std::move(other)), changes(other.changes++) {}
  ~ValueMap() = default;

  ValueMap& operator=(const ValueMap& other) { return *this = ValueMap(other); }
  ValueMap& operator=(ValueMap&& other) noexcept {
    changes = std::max(changes, other.changes++) + 1;
    Map::operator=(std::move(other));
    return *this;
  }

  size_type erase(const std::string& name) {
    ++changes;
    return Map::erase(name);
  }

  void clear() {
    ++changes;
    Map::clear();
  }

  bool contains(const std::string& name) const { return count(name) > 0; }

  /// Changes whenever the address of a value may have become invalid.
  std::uint64_t version() const { return changes; }

 private:
  std::uint64_t changes = 0;
};

}  // namespace nordika::detail

#endif
