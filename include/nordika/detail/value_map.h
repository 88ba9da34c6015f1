// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_DETAIL_VALUE_MAP_H
#define NORDIKA_DETAIL_VALUE_MAP_H

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>

namespace nordika::detail {

/// A std::map from names to values that counts the operations which may remove
/// elements. An expression keeps the addresses of its variables' values between
/// calls; version() shows whether they are still good. With a look-up of each
/// variable a call takes two to three times as long, and a traced run of simple
/// iterations a third longer.
class ValueMap {
  using Map = std::map<std::string, double>;

 public:
  using const_iterator = Map::const_iterator;
  using iterator = Map::iterator;
  using size_type = Map::size_type;
  using value_type = Map::value_type;

  ValueMap() = default;
  ValueMap(const ValueMap&) = default;
  ValueMap(ValueMap&& other) noexcept : values(std::move(other.values)), changes(other.changes++) {}
  ~ValueMap() = default;

  ValueMap& operator=(const ValueMap& other) { return *this = ValueMap(other); }
  ValueMap& operator=(ValueMap&& other) noexcept {
    changes = std::max(changes, other.changes++) + 1;
    values = std::move(other.values);
    return *this;
  }

  operator const Map&() const { return values; }

  iterator begin() { return values.begin(); }
  const_iterator begin() const { return values.begin(); }
  iterator end() { return values.end(); }
  const_iterator end() const { return values.end(); }

  bool empty() const { return values.empty(); }
  size_type size() const { return values.size(); }

  double& operator[](const std::string& name) { return values[name]; }
  double& at(const std::string& name) { return values.at(name); }
  const double& at(const std::string& name) const { return values.at(name); }

  bool contains(const std::string& name) const { return count(name) > 0; }
  size_type count(const std::string& name) const { return values.count(name); }
  iterator find(const std::string& name) { return values.find(name); }
  const_iterator find(const std::string& name) const { return values.find(name); }
  iterator lower_bound(const std::string& name) { return values.lower_bound(name); }
  const_iterator lower_bound(const std::string& name) const { return values.lower_bound(name); }
  iterator upper_bound(const std::string& name) { return values.upper_bound(name); }
  const_iterator upper_bound(const std::string& name) const { return values.upper_bound(name); }

  std::pair<iterator, bool> insert(const value_type& element) { return values.insert(element); }
  void insert(std::initializer_list<value_type> elements) { values.insert(elements); }
  template <typename Iterator>
  void insert(Iterator first, Iterator last) {
    values.insert(first, last);
  }
  template <typename... Arguments>
  std::pair<iterator, bool> emplace(Arguments&&... arguments) {
    return values.emplace(std::forward<Arguments>(arguments)...);
  }
  std::pair<iterator, bool> insert_or_assign(const std::string& name, double value) {
    return values.insert_or_assign(name, value);
  }

  size_type erase(const std::string& name) {
    ++changes;
    return values.erase(name);
  }
  void clear() {
    ++changes;
    values.clear();
  }

  /// Changes whenever the address of a value may have become invalid.
  std::uint64_t version() const { return changes; }

 private:
  Map values;
  std::uint64_t changes = 0;
};

}  // namespace nordika::detail

#endif
