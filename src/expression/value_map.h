// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// A map from names to values.

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
  /// What holds the values; names of any string type are looked up as they are.
  using Map = std::map<std::string, double, std::less<>>;
  /// A place in the map: a name and its value.
  using const_iterator = Map::const_iterator;
  /// The same, where the value may be changed.
  using iterator = Map::iterator;

  /// The empty map.
  ValueMap() = default;

  /// A copy with elements, and a generation(), of its own.
  ValueMap(const ValueMap& other) : values(other.values) {}

  /// Takes the elements over, which stay where they are; the generation() of
  /// `other` changes.
  ValueMap(ValueMap&& other) noexcept : values(std::move(other.values)) { ++other.removals; }

  /// Replaces all elements by copies; generation() changes.
  ValueMap& operator=(const ValueMap& other) {
    ++removals;
    values = other.values;
    return *this;
  }

  /// Replaces all elements by those of `other`; generation() of both changes.
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
