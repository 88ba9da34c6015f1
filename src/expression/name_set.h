// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

/// @file
/// A set of names.

#ifndef NORDIKA_EXPRESSION_NAME_SET_H
#define NORDIKA_EXPRESSION_NAME_SET_H

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

/// An ordered set of names in one block of memory. Every expression owns two
/// of them and is copied often, which node-based sets make expensive.
class NameSet {
 public:
  /// A place among the names, which stand in ascending order.
  using const_iterator = std::vector<std::string>::const_iterator;

  /// Adds a name; a name already present changes nothing.
  void insert(std::string_view name) {
    const auto place = std::lower_bound(names.begin(), names.end(), name);
    if (place == names.end() || *place != name) names.emplace(place, name);
  }

  /// The place of a name, or end().
  const_iterator find(std::string_view name) const {
    const auto place = std::lower_bound(names.begin(), names.end(), name);
    return place != names.end() && *place == name ? place : names.end();
  }

  /// Whether the name is present.
  bool contains(std::string_view name) const { return find(name) != names.end(); }

  /// 1 for a name that is present, else 0.
  std::size_t count(std::string_view name) const { return contains(name) ? 1 : 0; }

  /// The number of names.
  std::size_t size() const { return names.size(); }

  /// Whether there are no names.
  bool empty() const { return names.empty(); }

  /// The first name in ascending order.
  const_iterator begin() const { return names.begin(); }

  /// The place after the last name.
  const_iterator end() const { return names.end(); }

 private:
  std::vector<std::string> names;
};

#endif
