// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#ifndef NORDIKA_EXPRESSION_VALUE_MAP_H
#define NORDIKA_EXPRESSION_VALUE_MAP_H

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

/// An ordered map from names to values whose elements stay where they are: a
/// pointer to a value is good until generation() changes.
class ValueMap {
 public:
  using Map = std::map<std::string, double, std::less<>>;
  using const_iterator = Map::const_iterator;
  using iterator = Map::iterator;

  ValueMap() = default;
  ValueMap(const ValueMap& other) : values(other.values) {}
  ValueMap(ValueMap&& other) noexcept : values(std::move(other.values)) { ++other.removals; }
  ValueMap& operator=(const ValueMap& other) {
    values = other.values;
    ++removals;
    return *this;
  }
  ValueMap& operator=(ValueMap&& other) noexcept {
    values = std::move(other.values);
    ++removals;
    ++other.removals;
    return *this;
  }
  ~ValueMap() = default;

  /// The value of a name, which is added with the value 0 if it is absent.
  double& operator[](std::string_view name) {
    const auto place = values.lower_bound(name);
    if (place != values.end() && place->first == name) return place->second;
    return values.emplace_hint(place, name, 0.0)->second;
  }

  /// The value of a name.
  /// @throws std::out_of_range for an absent name
  double& at(const std::string& name) { return values.at(name); }
  /// @copydoc at
  const double& at(const std::string& name) const { return values.at(name); }

  /// Sets the value of a name, which is added if it is absent.
  void insert_or_assign(std::string_view name, double value) { (*this)[name] = value; }

  /// The place of a name, or end().
  iterator find(std::string_view name) { return values.find(name); }
  /// @copydoc find
  const_iterator find(std::string_view name) const { return values.find(name); }

  /// 1 for a name that is present, else 0.
  std::size_t count(std::string_view name) const { return values.count(name); }

  /// Whether the name is present.
  bool contains(std::string_view name) const { return values.contains(name); }

  /// Removes a name; the number of names removed, 0 or 1.
  std::size_t erase(const std::string& name) {
    ++removals;
    return values.erase(name);
  }

  /// Removes all names.
  void clear() {
    ++removals;
    values.clear();
  }

  /// The number of names.
  std::size_t size() const { return values.size(); }

  /// Whether there are no names.
  bool empty() const { return values.empty(); }

  /// The first name in ascending order, with its value.
  iterator begin() { return values.begin(); }
  /// @copydoc begin
  const_iterator begin() const { return values.begin(); }

  /// The place after the last name.
  iterator end() { return values.end(); }
  /// @copydoc end
  const_iterator end() const { return values.end(); }

  /// Changes whenever a pointer to a value may have become invalid.
  std::uint64_t generation() const { return removals; }

 private:
  Map values;
  std::uint64_t removals = 0;
};

#endif
