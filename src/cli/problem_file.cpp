// SPDX-FileCopyrightText: 2026 the Nordika authors
// SPDX-License-Identifier: MIT

#include "cli/problem_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <toml++/toml.h>
#include <utility>

#include "cli/command.h"
#include "cli/streams.h"

namespace nordika {

namespace {

using Entry = std::pair<const toml::key*, const toml::node*>;

std::string textOf(double number) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

std::string shown(const toml::node& node) {
  if (const auto* const text = node.as_string()) return '"' + text->get() + '"';
  if (const auto* const number = node.as_integer()) return std::to_string(number->get());
  if (const auto* const number = node.as_floating_point()) return textOf(number->get());
  if (const auto* const flag = node.as_boolean()) return flag->get() ? "true" : "false";
  if (node.is_array()) return "an array";
  return node.is_table() ? "a table" : "a date or time";
}

// The entries of a table lie in the order of their keys.
std::vector<Entry> inOrderOfLines(const toml::table& table) {
  std::vector<Entry> entries;
  for (const auto& [key, node] : table)
    entries.emplace_back(&key, &node);
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
    return a.first->source().begin < b.first->source().begin;
  });
  return entries;
}

// "[a.b]" for a table that holds only the table b.
std::string sectionName(const Entry& entry) {
  std::string name(entry.first->str());
  const toml::table* table = entry.second->as_table();
  while (table != nullptr && table->size() == 1) {
    const auto only = table->begin();
    table = only->second.as_table();
    if (table != nullptr) name.append(".").append(only->first.str());
  }
  return "[" + name + "]";
}

class Reader {
 public:
  Reader(std::string name, const std::map<std::string, Kind>& kinds)
      : file(std::move(name)), keys(kinds) {}

  Settings read(const toml::table& table) {
    Settings settings;
    for (const Entry& entry : inOrderOfLines(table)) {
      key = entry.first->str();
      const toml::source_region& where = entry.first->source();
      if (entry.second->is_table() || entry.second->is_array_of_tables())
        refuse(where, "unknown section " + sectionName(entry));
      const auto kind = keys.find(key);
      if (kind == keys.end()) refuse(where, "unknown key " + key);
      settings[key] = {at(where) + key, valuesOf(*entry.second, kind->second)};
    }
    return settings;
  }

  [[noreturn]] void refuse(const toml::source_region& where, const std::string& fault) const {
    throw WrongUsage(at(where) + fault);
  }

 private:
  std::string at(const toml::source_region& where) const {
    return file + ":" + std::to_string(where.begin.line) + ": ";
  }

  [[noreturn]] void refuseValue(const toml::node& node, const std::string& fault) const {
    refuse(node.source(), key + ": " + shown(node) + fault);
  }

  std::vector<std::string> valuesOf(const toml::node& node, Kind kind) const {
    if (kind == Kind::kNumbers) return listOf(node, Kind::kNumber);
    if (kind == Kind::kTexts) return listOf(node, Kind::kText);
    if (kind == Kind::kMatrix) return matrixOf(node);
    return {valueOf(node, kind)};
  }

  std::string valueOf(const toml::node& node, Kind kind) const {
    if (kind == Kind::kFlag) {
      if (!node.is_boolean()) refuseValue(node, " is neither true nor false");
      return shown(node);
    }
    if (kind == Kind::kText) {
      if (!node.is_string()) refuseValue(node, " is not a text in quotes");
      return node.as_string()->get();
    }
    if (!node.is_number()) refuseValue(node, " is not a number");
    if (node.is_floating_point() && !std::isfinite(node.as_floating_point()->get()))
      refuseValue(node, " is not a finite number");
    return shown(node);
  }

  // A value alone is a list of one.
  std::vector<std::string> listOf(const toml::node& node, Kind kind) const {
    const toml::array* const array = node.as_array();
    if (array == nullptr) return {valueOf(node, kind)};
    if (array->empty()) refuse(node.source(), key + " has no values");
    std::vector<std::string> values;
    for (const toml::node& element : *array)
      values.push_back(valueOf(element, kind));
    return values;
  }

  // A list of all elements, or of rows.
  std::vector<std::string> matrixOf(const toml::node& node) const {
    const toml::array* const rows = node.as_array();
    const auto isRow = [](const toml::node& element) { return element.is_array(); };
    if (rows == nullptr || std::none_of(rows->begin(), rows->end(), isRow))
      return listOf(node, Kind::kText);
    std::vector<std::string> values;
    for (const toml::node& row : *rows) {
      if (!isRow(row)) refuseValue(row, " stands among rows");
      const std::vector<std::string> texts = listOf(row, Kind::kText);
      if (texts.size() != rows->size())
        refuse(row.source(), key + ": a row has " + std::to_string(texts.size()) +
                                 " values instead of " + std::to_string(rows->size()));
      values.insert(values.end(), texts.begin(), texts.end());
    }
    return values;
  }

  std::string file;
  const std::map<std::string, Kind>& keys;
  std::string key;  // that is being read
};

}  // namespace

std::string shownFile(const std::string& file) {
  return file == "-" ? "standard input" : file;
}

Settings readProblemFile(const std::string& file, const std::map<std::string, Kind>& keys) {
  const std::optional<std::string> text = contentOf(file);
  if (!text) throw WrongUsage("cannot read " + shownFile(file));
  const toml::parse_result result = toml::parse(*text);
  Reader reader(shownFile(file), keys);
  if (!result) reader.refuse(result.error().source(), std::string(result.error().description()));
  return reader.read(result.table());
}

}  // namespace nordika
